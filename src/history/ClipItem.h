#pragma once

#include <QDateTime>
#include <QString>

#include <memory>
#include <optional>

/// One recorded copy. Has identity: there is one object for each record, and selection and
/// deletion compare objects. Made and owned by the history; whoever shows clips shares it. Absent
/// attributes are absent, never empty texts.
class ClipItem
{
public:
    ClipItem() = default;
    ClipItem(const ClipItem &) = delete;
    ClipItem &operator=(const ClipItem &) = delete;

    /// In the record for the stores that exist; never written.
    std::optional<qint64> id() const { return std::nullopt; }
    /// The plain text; of a copied file the text its application offered with it.
    std::optional<QString> strValue() const { return m_strValue; }
    /// The RTF source; absent when the copy had none.
    std::optional<QString> rtfValue() const { return m_rtfValue; }
    /// The application in front at the moment of the copy.
    std::optional<QString> applicationName() const { return m_applicationName; }
    /// Absolute path of the first copied file; absent for a text.
    std::optional<QString> filepath() const { return m_filepath; }
    /// When the text was last copied, in UTC.
    std::optional<QDateTime> createDate() const { return m_createDate; }
    /// How often the clip was pasted, less one; absent before the first paste.
    std::optional<qint32> pasteCount() const { return m_pasteCount; }
    /// The one line that a list shows.
    std::optional<QString> shortText() const { return m_shortText; }

    void setShortText(const std::optional<QString> &shortText) { m_shortText = shortText; }

private:
    friend class ClipHistory;

    std::optional<QString> m_strValue;
    std::optional<QString> m_rtfValue;
    std::optional<QString> m_applicationName;
    std::optional<QString> m_filepath;
    std::optional<QString> m_shortText;
    std::optional<QDateTime> m_createDate;
    std::optional<qint32> m_pasteCount;
};
