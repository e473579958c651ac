#include "history/PutBack.h"

#include <utility>

PutBack::PutBack(Pasteboard &pasteboard, std::chrono::milliseconds patience,
                 std::chrono::milliseconds reading)
    : m_pasteboard(pasteboard), m_patience(patience)
{
    m_timer.setSingleShot(true);
    connect(&m_timer, &QTimer::timeout, this, &PutBack::finish);
    connect(&m_pasteboard, &Pasteboard::pasteRead, this, [this, reading] {
        if (m_due)
            m_timer.start(reading);
    });
}

void PutBack::begin(const SwopItem &selection)
{
    m_due = Due{selection, m_pasteboard.contents()};
    if (m_pasteboard.isPasteRead())
        finish();
    else
        m_timer.start(m_patience);
}

void PutBack::cancel()
{
    m_due.reset();
    m_timer.stop();
}

void PutBack::finish()
{
    m_timer.stop();
    if (!m_due)
        return;
    const Due due = *std::exchange(m_due, std::nullopt);
    // By its text, because another clipboard manager may have taken the clip over.
    const std::optional<PasteboardContents> present = m_pasteboard.contents();
    if (present.has_value() != due.pasted.has_value() ||
        (present &&
         (present->text != due.pasted->text || present->fileNames != due.pasted->fileNames)))
        return;
    Copy selection = due.selection;
    selection.fileNames.clear();
    if (m_pasteboard.write(selection))
        Q_EMIT done();
    else
        Q_EMIT failed();
}
