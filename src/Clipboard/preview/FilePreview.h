#pragma once

#include "Clipboard/preview/FileWatch.h"
#include "looks/ClipColors.h"
#include "platform/FileQuestions.h"

#include <QTimer>
#include <QWidget>

class FileCard;
class PreviewBody;
class PreviewContent;
class PreviewRegistry;
struct PreviewResult;

/// A view of one file, made fresh for each file that is shown: its content where a reader can
/// read it, else its card. Owned by its parent widget; the registry must outlive it. Follows the
/// file's changes while it is visible. Ending it cancels what is being read for it.
class FilePreview : public QWidget
{
    Q_OBJECT

public:
    FilePreview(PreviewRegistry &registry, QString path, QWidget *parent);
    ~FilePreview() override;

    /// Shows the file as it is now. Returns at once; it is read off the main thread and shown when
    /// it has come. Where nothing comes in time, the card without attributes is shown.
    void refresh();

    /// Whether it was ever refreshed.
    bool isAsked() const { return m_askedPixels.isValid(); }

    /// Shows the card in place of the content.
    void showCard();

    void setColors(const ClipColors &colors);

    /// What is shown of the content; null while there is only the card.
    PreviewBody *body() const { return m_body; }
    FileCard *card() const { return m_card; }

Q_SIGNALS:
    /// The file was written, replaced, removed, or came back.
    void fileChanged();

protected:
    void resizeEvent(QResizeEvent *event) override;
    void showEvent(QShowEvent *event) override;

private:
    void receive(const PreviewResult &result);
    void settle();
    QSize wantedPixels() const;

    PreviewRegistry &m_registry;
    const QString m_path;
    ClipColors m_colors;
    FileCard *m_card;
    PreviewBody *m_body = nullptr;
    std::shared_ptr<const PreviewContent> m_content; ///< Of `m_body`.
    QSize m_askedPixels;                             ///< Of the latest read.
    FileTicket m_ticket;
    QTimer m_patience; ///< Until the card is shown in place of a content that does not come.
    QTimer m_settling; ///< Until a change of the file or of the size has come to rest.
    FileWatch m_watch;
    bool m_isStale = false; ///< Changed while it was hidden.
};
