#pragma once

#include "platform/Copy.h"

#include <QByteArray>
#include <QList>
#include <QString>

#include <optional>

/// One clip as it leaves the history, or comes into it.
struct SharedClip : Copy
{
    qint64 id = 0; ///< Of its record; 0 while it has none.
    std::optional<QString> applicationName = {};
    std::optional<double> createSeconds = {}; ///< Since 1970 UTC.
    std::optional<qint32> pasteCount = {};

    /// About how much room it takes, in bytes.
    qint64 bytes() const
    {
        qint64 sum = text ? text->size() * 3 : 0;
        for (const CopyFormat &format : storedFormats()) {
            if (const std::optional<QString> &source = this->*format.source)
                sum += source->size();
        }
        return sum;
    }
};

/// What the shell and other programs may do with the clips. One implementation is the history
/// itself, another asks the instance that runs; whoever uses it need not know which. Main thread
/// only. Ids are those of records, which never change; 0 is none.
class SharedClips
{
public:
    enum class Fault {
        None,
        NoSuchClip,
        NotText,    ///< What was to become a copy is no text, or none at all.
        TooLarge,   ///< Larger than the largest text that is recorded, or than can be handed over.
        Unwritable, ///< The history, or the pasteboard, takes no change.
        Unable,     ///< Not at this moment, because the application begins or ends, or not here.
        Nobody      ///< There is no application to ask.
    };
    template <typename T>
    struct Answer
    {
        T value{};
        Fault fault = Fault::None;
    };
    /// Before the number of a record, because a bare number is a row.
    static constexpr char kIdMark = 'c';
    struct Line
    {
        qint64 id = 0;
        QString text; ///< In one line, and no longer than kLineLength.

        /// As a list has it: an id by which the words know the clip, a tab, the text.
        void appendTo(QByteArray &list) const
        {
            list += kIdMark + QByteArray::number(id) + '\t' + text.toUtf8() + '\n';
        }
    };
    struct Room
    {
        qint64 clips = 0;       ///< How many there are.
        qint64 limit = 0;       ///< How many there may be before an addition removes the oldest.
        qint64 largestText = 0; ///< In bytes of UTF-8.
    };
    /// What became of clips that were to be added.
    struct Added
    {
        qint64 added = 0;
        qint64 known = 0;    ///< The history has their texts already.
        qint64 tooLarge = 0; ///< Larger than the largest text that is recorded.
        qint64 noRoom = 0;   ///< The history is full, and adding never removes.
    };

    /// In characters.
    static constexpr qsizetype kLineLength = 400;
    /// One answer has no more of clips, in SharedClip::bytes(), or is a single one.
    static constexpr qint64 kMaxHandedOver = 32 * 1024 * 1024;

    SharedClips() = default;
    SharedClips(const SharedClips &) = delete;
    SharedClips &operator=(const SharedClips &) = delete;
    virtual ~SharedClips() = default;

    /// The clips that a search for `term` finds, newest first; an empty one finds all.
    virtual Answer<QList<qlonglong>> find(const QString &term) = 0;
    /// What a list shows of these clips; those that are gone are left out.
    virtual Answer<QList<Line>> lines(const QList<qlonglong> &ids) = 0;
    /// The whole of the first of these clips, as many as go into one answer and at least one; those
    /// that are gone are left out.
    virtual Answer<QList<SharedClip>> clips(const QList<qlonglong> &ids) = 0;

    /// Puts a text on the pasteboard, which makes it the newest clip.
    virtual Fault copy(const QByteArray &utf8) = 0;
    /// Pastes the clip into the application in front, once no key is held any more.
    virtual Fault paste(qint64 id) = 0;
    /// How many there were of these clips, which are gone now.
    virtual Answer<qint64> remove(const QList<qlonglong> &ids) = 0;

    virtual Answer<Room> room() = 0;
    /// Adds clips with the dates that they have, older ones behind what is there. Removes nothing
    /// for them: what has no room is left out, the last of the list first. With `onlyCount` nothing
    /// is added, and the answer is what would be.
    virtual Answer<Added> add(const QList<SharedClip> &clips, bool onlyCount) = 0;
};
