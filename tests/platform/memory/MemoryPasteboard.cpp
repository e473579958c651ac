#include "platform/memory/MemoryPasteboard.h"

#include <utility>

void MemoryPasteboard::copyFromOutside(PasteboardContents contents)
{
    contents.isOwnWrite = false;
    m_copiedText = contents.text;
    const qint64 bytes = contents.text.value_or(QString()).toUtf8().size();
    if (!contents.isConcealed && bytes > maxUsefulText()) {
        contents.isTextTooLarge = true;
        contents.tooLargeBytes = bytes;
    }
    contents.isPictureTooLarge = !contents.isConcealed && maxUsefulPicture() > 0 &&
                                 contents.picture.size() > maxUsefulPicture();
    const bool isPictureOfUse =
        contents.text.value_or(QString()).isEmpty() && contents.fileNames.isEmpty();
    if (contents.picture.size() > maxUsefulPicture() || !isPictureOfUse)
        contents.picture.clear();
    if (contents.isConcealed || contents.isTextTooLarge)
        static_cast<Copy &>(contents) = Copy();
    Q_EMIT changed(m_changes.publish(std::move(contents)));
}

void MemoryPasteboard::setFront(const QString &applicationName, bool isOurs)
{
    m_frontName = applicationName;
    m_isOursInFront = isOurs;
}

void MemoryPasteboard::setPasteRead(bool isRead)
{
    const bool isNews = isRead && !m_isPasteRead;
    m_isPasteRead = isRead;
    if (isNews)
        Q_EMIT pasteRead();
}

Copy MemoryPasteboard::pasteInFront()
{
    const PasteboardContents contents = m_changes.contents().value_or(PasteboardContents());
    if (m_areFetchesTold && contents.isOwnWrite)
        Q_EMIT fetched(contents.changeCount);
    return contents;
}

void MemoryPasteboard::acknowledge(qint64 changeCount)
{
    m_acknowledged.append(changeCount);
    m_changes.acknowledge(changeCount);
}

void MemoryPasteboard::discard(qint64 changeCount)
{
    m_discarded.append(changeCount);
    m_changes.discard(changeCount);
}

bool MemoryPasteboard::write(const Copy &copy)
{
    if (m_writeFails)
        return false;
    PasteboardContents contents{copy.withText(), m_frontName};
    contents.isOwnWrite = true;
    contents.isOursInFront = m_isOursInFront;
    m_copiedText = contents.text;
    m_writes.append(copy);
    m_changes.publish(std::move(contents));
    return true;
}

void MemoryPasteboard::clear()
{
    m_copiedText.reset();
    m_changes.publishCleared();
}

void MemoryPasteboard::askText(Selection selection, QObject *context, TextAnswer answer)
{
    if (m_ownersHang)
        m_questions.append({context, std::move(answer)});
    else
        answer(selection == Selection::Clipboard ? m_copiedText : m_markedText);
}

void MemoryPasteboard::answerNow(const std::optional<QString> &text)
{
    const auto questions = std::exchange(m_questions, {});
    for (const auto &[context, answer] : questions) {
        if (context)
            answer(text);
    }
}
