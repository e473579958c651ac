#pragma once

#include <QList>
#include <QString>

#include <compare>
#include <optional>

/// A version: numbers separated by dots, and a final "b" for a beta, which comes before the release
/// of the same numbers. "1.2" and "1.2.0" are the same version.
class UpdateVersion
{
public:
    /// Nothing when the text is anything else.
    static std::optional<UpdateVersion> parse(const QString &text);

    /// Only a final "b" counts: 2.1b is a beta version, 2.1b2 is not.
    static bool isBeta(const QString &text) { return text.endsWith(u'b'); }

    std::strong_ordering operator<=>(const UpdateVersion &other) const;
    bool operator==(const UpdateVersion &other) const { return std::is_eq(*this <=> other); }

private:
    QList<int> m_numbers;
    bool m_isBeta = false;
};
