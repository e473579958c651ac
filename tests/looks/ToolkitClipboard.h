#pragma once

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>
#include <QPointer>

/// The toolkit's clipboard with something on it that tells whether anybody has looked at it or has
/// put something else there.
class ToolkitClipboard
{
public:
    ToolkitClipboard()
    {
        for (const QClipboard::Mode mode : {QClipboard::Clipboard, QClipboard::Selection}) {
            auto *bait = new Bait(m_reads);
            QGuiApplication::clipboard()->setMimeData(bait, mode);
            m_baits.append(bait);
        }
        QCoreApplication::processEvents();
        m_reads = 0;
    }

    bool isUntouched() const
    {
        const bool isReplaced =
            m_baits.contains(nullptr) ||
            QGuiApplication::clipboard()->mimeData(QClipboard::Clipboard) != m_baits.at(0) ||
            QGuiApplication::clipboard()->mimeData(QClipboard::Selection) != m_baits.at(1);
        return !isReplaced && m_reads == 0;
    }

private:
    class Bait : public QMimeData
    {
    public:
        explicit Bait(int &reads) : m_reads(reads) { setText(QStringLiteral("bait")); }
        bool hasFormat(const QString &format) const override
        {
            ++m_reads;
            return QMimeData::hasFormat(format);
        }
        QStringList formats() const override
        {
            ++m_reads;
            return QMimeData::formats();
        }

    protected:
        QVariant retrieveData(const QString &format, QMetaType type) const override
        {
            ++m_reads;
            return QMimeData::retrieveData(format, type);
        }

    private:
        int &m_reads;
    };

    int m_reads = 0;
    QList<QPointer<QMimeData>> m_baits;
};
