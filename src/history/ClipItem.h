#pragma once

#include "history/TextSummary.h"

#include <QDateTime>
#include <QString>
#include <QStringList>

#include <limits>
#include <memory>
#include <optional>

class ClipContext;
struct Clip;
struct ClipChange;

/// One recorded copy. Has identity: there is one object for each record, and selection and
/// deletion compare objects. Made by the history's context; whoever shows clips shares it. The
/// values stay in the store and are read when they are asked for, so a clip is small however long
/// its text; one that was deleted has no values left. Absent attributes are absent, never empty
/// texts.
class ClipItem
{
public:
    /// Only the context makes clips.
    explicit ClipItem(ClipContext &context);
    ~ClipItem();
    ClipItem(const ClipItem &) = delete;
    ClipItem &operator=(const ClipItem &) = delete;

    /// In the record for the stores that exist; never written.
    std::optional<qint64> id() const;
    /// The plain text; of a copied file the text its application offered with it.
    std::optional<QString> strValue() const;
    /// The RTF source; absent when the copy had none.
    std::optional<QString> rtfValue() const;
    /// The application in front at the moment of the copy.
    std::optional<QString> applicationName() const;
    /// Absolute path of the first copied file; absent for a text.
    std::optional<QString> filepath() const;
    /// When the text was last copied, in UTC.
    std::optional<QDateTime> createDate() const;
    /// How often the clip was pasted, less one; absent before the first paste.
    std::optional<qint32> pasteCount() const;
    /// The whole of it, in every format.
    Clip clip() const;

    // What is known without a look into the store
    bool isInHistory() const { return m_context != nullptr; }
    /// Of its record, which keeps it; 0 until it was saved.
    qint64 recordKey() const { return m_pk; }
    bool hasText() const { return m_hasText; }
    bool hasFilepath() const { return m_hasFilepath; }
    /// Whether trimming passes it over.
    bool isPinned() const { return m_isPinned; }
    bool isUnsaved() const { return m_unsaved != nullptr; }
    /// Seconds since 1970 UTC; NaN when absent.
    double createSeconds() const { return m_createDate; }
    /// The newer clip goes first; of one date the later record, and what has no date last.
    bool isNewerThan(const ClipItem &other) const;

    /// The one line that a list shows, made when it is first asked for. Of a text longer than
    /// 16 KiB it shows the beginning, which is more than any list has room for.
    std::optional<QString> shortText() const;
    /// The beginning of what shortText() tells, with its line breaks; for drawing.
    QString drawnText() const;
    /// The files of a copy of several, the first of which is filepath(); else empty.
    QStringList copiedFiles() const;
    /// How many those are, without the list of them; 0 for none.
    int copiedFileCount() const;

private:
    const Clip *unsavedClip() const;
    /// What of two clips of one date tells the newer one.
    qint64 rank() const;

    friend class ClipContext;
    friend class ClipIndex;

    enum class Text : quint8 {
        Unknown,  ///< Not indexed yet.
        None,     ///< The record has no text.
        InMemory, ///< `m_folded` holds it.
        InStore   ///< Too long to be kept folded; `m_summary` may tell of it.
    };

    ClipContext *m_context;                                         ///< Null once deleted.
    qint64 m_pk = 0;                                                ///< 0 until it was saved.
    double m_createDate = std::numeric_limits<double>::quiet_NaN(); ///< Seconds since 1970 UTC.
    std::unique_ptr<ClipChange> m_unsaved;

    // What the index knows; in the clip because a hundred thousand of them are walked at a time.
    std::unique_ptr<char[]> m_folded; ///< Case-folded UTF-8, not terminated.
    std::size_t m_textHash = 0;
    quint32 m_foldedSize = 0;
    quint32 m_search = 0; ///< The last that has looked at the clip; 0 for none.
    TextSummary m_summary;
    bool m_isFound = false; ///< By that search.
    Text m_text = Text::Unknown;
    bool m_hasFilepath = false;
    bool m_hasText = false;
    bool m_isPinned = false;
};
