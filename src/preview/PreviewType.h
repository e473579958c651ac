#pragma once

#include <QStringList>

class QMimeType;

/// What kind of file it is, as readers ask for it: its name and those of the more general types
/// that it also is. A value, that needs no database where it is used.
class PreviewType
{
public:
    static constexpr qsizetype kMaxNames = 64;

    PreviewType() = default;
    explicit PreviewType(const QMimeType &type);
    /// `names` begins with its own.
    explicit PreviewType(QStringList names) : m_names(std::move(names)) {}

    QString name() const { return m_names.value(0); }
    const QStringList &names() const { return m_names; }

    /// Whether it is of that type, or of one that is.
    bool inherits(QLatin1String name) const { return m_names.contains(name); }

private:
    QStringList m_names; ///< By every name that a type is known by.
};
