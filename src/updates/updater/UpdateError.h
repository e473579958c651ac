#pragma once

#include <QString>

/// Why an update run ended, as an error of that domain and code.
struct UpdateError
{
    static QString cocoaDomain() { return QStringLiteral("NSCocoaErrorDomain"); }
    static QString updaterDomain() { return QStringLiteral("QuillmarshUpdaterErrorDomain"); }

    QString domain;
    int code = 0;
    QString localizedDescription;
};
