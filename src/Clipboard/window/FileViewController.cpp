#include "Clipboard/window/FileViewController.h"

#include "Clipboard/preview/FilePreview.h"
#include "Clipboard/preview/PreviewRegistry.h"
#include "Clipboard/window/ClipTextView.h"
#include "Clipboard/window/HistoryActions.h"
#include "Clipboard/window/PathLabel.h"
#include "looks/Looks.h"
#include "looks/PaneButton.h"
#include "looks/WindowIcons.h"
#include "platform/Workspace.h"

#include <QEvent>
#include <QFrame>
#include <QLabel>
#include <QStyle>

namespace {

constexpr int kMargin = Looks::kTextMargin;
constexpr int kSpacing = 8;
constexpr int kWarningExtent = 20;
constexpr int kAboveSeparator = 3; ///< Points between the preview and the separator.
constexpr QSize kFirstSize(440, 380);
/// Long enough that nothing is read twice while somebody looks through the history.
constexpr std::chrono::seconds kForgetAfter{30};

} // namespace

FileViewController::FileViewController(HistoryActions &appDelegate, Workspace &workspace,
                                       FileQuestions &questions)
    : m_appDelegate(appDelegate), m_workspace(workspace),
      m_registry(std::make_unique<PreviewRegistry>(questions)), m_view(std::make_unique<QWidget>()),
      m_copiedFilesLabel(new QLabel(view())), m_copiedFiles(new ClipTextView(view())),
      m_filepathLabel(new PathLabel(view())), m_separatorLine(new QFrame(view())),
      m_openButton(new PaneButton(tr("Open"), view())),
      m_revealInFinderButton(new PaneButton(tr("Reveal in File Manager"), view())),
      m_fileDoesNotExistLabel(new QLabel(tr("The file no longer exists."), view())),
      m_warningImageView(new QLabel(view()))
{
    m_view->setObjectName(QStringLiteral("fileView"));
    m_view->setAccessibleName(tr("File preview"));
    m_view->resize(kFirstSize);
    m_separatorLine->setAutoFillBackground(true);
    m_fileDoesNotExistLabel->setAccessibleName(m_fileDoesNotExistLabel->text());
    connect(m_openButton, &QPushButton::clicked, this, &FileViewController::openClicked);
    connect(m_revealInFinderButton, &QPushButton::clicked, this,
            &FileViewController::revealClicked);
    m_copiedFiles->setObjectName(QStringLiteral("copiedFiles"));
    m_copiedFiles->hide();
    m_copiedFilesLabel->setContentsMargins(kMargin, kSpacing, kMargin, 0);
    m_copiedFilesLabel->hide();
    connect(m_copiedFiles, &ClipTextView::otherKeyPressed, this,
            &FileViewController::otherKeyPressed);
    m_forgetting.setSingleShot(true);
    m_forgetting.setInterval(kForgetAfter);
    connect(&m_forgetting, &QTimer::timeout, this, [this] { m_registry->forget(); });
    m_view->installEventFilter(this);
    viewDidLoad();
}

FileViewController::~FileViewController() = default;

void FileViewController::viewDidLoad()
{
    m_previewView = m_registry->makeView(QString(), view());
    resizeView(m_view->geometry());
    m_warningImageView->hide();
    m_fileDoesNotExistLabel->hide();
}

void FileViewController::setPreviewItem(const QString &path)
{
    FilePreview *fresh = m_registry->makeView(path, view());
    fresh->setGeometry(m_previewView->geometry());
    fresh->setColors(m_colors);
    delete m_previewView;
    m_previewView = fresh;
    m_previewView->show();
    // While their file system hangs, only files that have answered are read, so that no further
    // thread is lost.
    if (!m_registry->questions().isHanging(path))
        m_previewView->refresh();
    m_filepathLabel->setPath(path);

    // Until the answer has come nothing is claimed about this file; the buttons stay as they are,
    // so that they do not flicker from file to file.
    m_warningImageView->hide();
    m_fileDoesNotExistLabel->hide();
    askExistence(path);
    connect(m_previewView, &FilePreview::fileChanged, this, [this, path] { askExistence(path); });
}

void FileViewController::setCopiedFiles(const QStringList &paths)
{
    m_copiedFiles->setVisible(!paths.isEmpty());
    m_copiedFilesLabel->setVisible(!paths.isEmpty());
    if (!paths.isEmpty()) {
        m_copiedFilesLabel->setText(
            tr("%Ln files were copied; Return pastes the first", nullptr, int(paths.size())));
        m_copiedFiles->setAccessibleName(m_copiedFilesLabel->text());
        m_copiedFiles->setString(paths.join(u'\n'));
    }
    layOutAboveSeparator(m_view->width());
}

void FileViewController::layOutAboveSeparator(int width)
{
    const int bottom = m_separatorLine->y() - kAboveSeparator;
    int list = 0;
    if (!m_copiedFiles->isHidden()) {
        // A third at most is the list's, so that the first file is still seen.
        const int lines = 1 + m_copiedFiles->document()->blockCount();
        const int label = m_copiedFilesLabel->sizeHint().height();
        list = qMin(lines * m_copiedFiles->fontMetrics().lineSpacing() + 2 * kMargin + label,
                    bottom / 3);
        m_copiedFilesLabel->setGeometry(0, bottom - list, width, label);
        m_copiedFiles->setGeometry(0, bottom - list + label, width, list - label);
    }
    m_previewView->setGeometry(0, 0, width, bottom - list);
}

void FileViewController::askExistence(const QString &path)
{
    const quint64 question = ++m_question;
    m_workspace.askFileExists(path, this, [this, question](bool exists) {
        if (question == m_question)
            existenceKnown(exists);
    });
}

void FileViewController::existenceKnown(bool exists)
{
    m_warningImageView->setVisible(!exists);
    m_fileDoesNotExistLabel->setVisible(!exists);
    m_openButton->setVisible(exists);
    m_revealInFinderButton->setVisible(exists);
    if (m_previewView->isAsked())
        return;
    if (exists)
        m_previewView->refresh();
    else
        m_previewView->showCard();
}

void FileViewController::resizeView(const QRect &rect)
{
    m_view->setGeometry(rect);
    layOutBelowSeparator(rect.size());
    layOutAboveSeparator(rect.width());
}

void FileViewController::layOutBelowSeparator(const QSize &size)
{
    const int buttonHeight = m_openButton->sizeHint().height();
    const int pathHeight = m_filepathLabel->sizeHint().height();
    int y = size.height() - kMargin - buttonHeight;
    const int buttonRow = y;
    y -= kSpacing + pathHeight;
    m_filepathLabel->setGeometry(kMargin, y, size.width() - 2 * kMargin, pathHeight);
    y -= kSpacing + 1;
    m_separatorLine->setGeometry(0, y, size.width(), 1);

    const auto place = [&](QWidget *widget, const QRect &rect) {
        widget->setGeometry(QStyle::visualRect(m_view->layoutDirection(), {{}, size}, rect));
    };
    const QSize open = m_openButton->sizeHint();
    const int left = kMargin + open.width() + kSpacing;
    place(m_openButton, QRect(QPoint(kMargin, buttonRow), open));
    const int revealWidth =
        qMin(m_revealInFinderButton->sizeHint().width(), size.width() - kMargin - left);
    place(m_revealInFinderButton, {left, buttonRow, revealWidth, buttonHeight});
    place(m_warningImageView, {kMargin, buttonRow, kWarningExtent, buttonHeight});
    const int textLeft = kMargin + kWarningExtent + kSpacing;
    place(m_fileDoesNotExistLabel,
          {textLeft, buttonRow, size.width() - kMargin - textLeft, buttonHeight});
}

bool FileViewController::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::Show)
        m_forgetting.stop();
    else if (event->type() == QEvent::Hide)
        m_forgetting.start();
    return QObject::eventFilter(watched, event);
}

void FileViewController::openClicked()
{
    m_appDelegate.openFile();
}

void FileViewController::revealClicked()
{
    m_appDelegate.revealInFinder();
}

void FileViewController::setColors(const ClipColors &colors)
{
    m_colors = colors;
    m_previewView->setColors(colors);
    m_copiedFiles->setColors(colors);
    m_openButton->setColors(colors);
    m_revealInFinderButton->setColors(colors);
    QPalette palette = colors.textPalette();
    palette.setColor(QPalette::WindowText, colors.quietText);
    palette.setColor(QPalette::Window, colors.separator);
    palette.setColor(QPalette::Text, colors.quietText);
    m_filepathLabel->setPalette(palette);
    m_separatorLine->setPalette(palette);
    m_copiedFilesLabel->setPalette(ClipColors::inkPalette(colors.quietText));
    m_fileDoesNotExistLabel->setPalette(ClipColors::inkPalette(colors.warning));
    m_warningImageView->setPixmap(WindowIcons::pixmap(QStringLiteral("warning"), kWarningExtent,
                                                      colors.warning, m_view->devicePixelRatioF()));
}
