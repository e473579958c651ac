#include "history/StoreError.h"

#include <QStringList>

namespace {

const QString kDescription = QStringLiteral("NSLocalizedDescription");

} // namespace

StoreError StoreError::ofSqlite(int code, const QString &message)
{
    return {QStringLiteral("SQLite"), code, {{kDescription, message}}};
}

StoreError StoreError::ofOpening(const StoreError &underlying)
{
    return {QStringLiteral("YOUR_ERROR_DOMAIN"),
            9999,
            {{kDescription, QStringLiteral("Failed to initialize the application's saved data")},
             {QStringLiteral("NSLocalizedFailureReason"),
              QStringLiteral("There was an error creating or loading the application's saved "
                             "data.")},
             {QStringLiteral("NSUnderlyingError"), underlying.text()}}};
}

QString StoreError::text() const
{
    return QStringLiteral("Error Domain=%1 Code=%2 \"%3\"")
        .arg(domain, QString::number(code), userInfo.empty() ? QString() : userInfo.front().second);
}

QString StoreError::logLine() const
{
    QStringList details;
    for (const auto &[name, value] : userInfo)
        details.append(name + QStringLiteral(" = ") + value);
    return QStringLiteral("Unresolved error %1, {%2}")
        .arg(text(), details.join(QStringLiteral("; ")));
}
