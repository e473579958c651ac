#pragma once

#include "looks/ClipColors.h"

#include <QObject>
#include <QString>
#include <QTimer>
#include <QUrl>
#include <QWidget>

#include <memory>

class ClipTextView;
class FilePreview;
class FileQuestions;
class HistoryActions;
class PaneButton;
class PathLabel;
class PreviewRegistry;
class QFrame;
class QKeyEvent;
class QLabel;
class Workspace;

/// The file preview: shows the selected file clip's file, its path, and buttons to open or reveal
/// it; or says that the file has gone. Owned by ViewController, which puts its view into the
/// preview pane.
class FileViewController : public QObject
{
    Q_OBJECT

public:
    /// All must outlive the controller.
    FileViewController(HistoryActions &appDelegate, Workspace &workspace, FileQuestions &questions);
    ~FileViewController() override;

    /// The whole pane. May be put into another widget, which must outlive this object.
    QWidget *view() const { return m_view.get(); }
    /// The view of the current file; another one for every file.
    FilePreview *previewView() const { return m_previewView; }
    PathLabel *filepathLabel() const { return m_filepathLabel; }
    QFrame *separatorLine() const { return m_separatorLine; }
    PaneButton *openButton() const { return m_openButton; }
    PaneButton *revealInFinderButton() const { return m_revealInFinderButton; }
    QLabel *fileDoesNotExistLabel() const { return m_fileDoesNotExistLabel; }
    QLabel *warningImageView() const { return m_warningImageView; }

    /// Shows the file at `path` in a fresh view. Whether it exists is asked without waiting, and
    /// again whenever it changes; the buttons or the warning follow the answer.
    void setPreviewItem(const QString &path);

    /// Lists the files that were copied with the one that is shown; empty for none.
    void setCopiedFiles(const QStringList &paths);
    /// Hidden while there is none to list.
    ClipTextView *copiedFiles() const { return m_copiedFiles; }

    /// Gives the pane the frame `rect` and the preview the space above the separator.
    void resizeView(const QRect &rect);

    void openClicked();
    void revealClicked();

    void setColors(const ClipColors &colors);

Q_SIGNALS:
    /// A key in the list that is neither for reading nor for copying from it.
    void otherKeyPressed(const QKeyEvent &event);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    /// What a file preview is given, by the established name; the preview takes the plain path
    /// instead, and the type is kept beside it.
    class PreviewItem
    {
    public:
        explicit PreviewItem(QUrl url) : m_url(std::move(url)) {}
        QUrl previewItemURL() const { return m_url; }
        QString previewItemTitle() const { return QStringLiteral("Test"); }

    private:
        QUrl m_url;
    };

    void viewDidLoad();
    void layOutBelowSeparator(const QSize &size);
    void askExistence(const QString &path);
    void existenceKnown(bool exists);
    void layOutAboveSeparator(int width);

    HistoryActions &m_appDelegate;
    Workspace &m_workspace;
    const std::unique_ptr<PreviewRegistry> m_registry;
    QTimer m_forgetting; ///< From when the pane is hidden until what it has read is forgotten.
    const std::unique_ptr<QWidget> m_view; ///< Ends before the registry that its parts use.
    FilePreview *m_previewView = nullptr;
    QLabel *m_copiedFilesLabel;
    ClipTextView *m_copiedFiles;
    PathLabel *m_filepathLabel;
    QFrame *m_separatorLine;
    PaneButton *m_openButton;
    PaneButton *m_revealInFinderButton;
    QLabel *m_fileDoesNotExistLabel;
    QLabel *m_warningImageView;
    ClipColors m_colors;
    quint64 m_question = 0; ///< The latest existence question; answers to earlier ones are void.
};
