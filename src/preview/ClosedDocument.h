#pragma once

#include <QTextDocument>

/// A document that shows only what it holds: what it refers to is neither read nor fetched.
class ClosedDocument : public QTextDocument
{
    Q_OBJECT

public:
    using QTextDocument::QTextDocument;

protected:
    QVariant loadResource(int type, const QUrl &name) override;
};
