#include "updates/feedback/FeedbackForm.h"

#include "looks/Looks.h"
#include "looks/PaneParts.h"
#include "updates/feedback/FeedbackDelivery.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QLineEdit>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QPushButton>

#include <algorithm>

namespace {

constexpr int kMargin = Looks::kPageMargin;
constexpr int kMaxMailCharacters = 254;
constexpr int kLinesOfText = 9;
constexpr int kMinLinesOfText = 3; ///< On a screen that is low for its font.
constexpr int kCharactersAcross = 66;

class BoundedTextEdit : public QPlainTextEdit
{
public:
    using QPlainTextEdit::QPlainTextEdit;

    // ^QPlainTextEdit
    QSize sizeHint() const override
    {
        return {minimumWidth(), kLinesOfText * fontMetrics().lineSpacing()};
    }

protected:
    // ^QPlainTextEdit
    void insertFromMimeData(const QMimeData *source) override
    {
        const int selected = textCursor().selectionEnd() - textCursor().selectionStart();
        const int room = FeedbackForm::kMaxCharacters - document()->characterCount() + 1 + selected;
        insertPlainText(source->text().left(std::max(room, 0)));
    }
};

} // namespace

FeedbackForm::FeedbackForm(const QString &systemLine, const FeedbackDelivery &delivery,
                           QWidget *parent)
    : QWidget(parent), text(new BoundedTextEdit), mail(new QLineEdit), system(new QCheckBox),
      status(makeWrappedLabel()), close(new QPushButton(tr("Close"))),
      send(new QPushButton(delivery.actionInWords()))
{
    text->setAccessibleName(tr("Message"));
    text->setTabChangesFocus(true);
    text->setMinimumSize(kCharactersAcross * fontMetrics().averageCharWidth(),
                         kMinLinesOfText * fontMetrics().lineSpacing());
    mail->setAccessibleName(tr("Mail address"));
    mail->setPlaceholderText(tr("optional, for an answer"));
    mail->setMaxLength(kMaxMailCharacters);
    system->setText(
        tr("Add the &line “%1”").arg(QString(systemLine).replace(u'&', QLatin1String("&&"))));
    system->setAccessibleName(tr("Send version and desktop"));
    system->setAccessibleDescription(systemLine);
    status->setObjectName(QStringLiteral("status"));
    // Return belongs to the text.
    close->setAutoDefault(false);
    send->setAutoDefault(false);
    send->setToolTip(tr("Ctrl + Return"));
    layOut(delivery.wayInWords());
}

void FeedbackForm::layOut(const QString &way)
{
    auto *textLabel = new QLabel(tr("&Message:"));
    textLabel->setBuddy(text);
    auto *mailLabel = new QLabel(tr("Mail &address:"));
    mailLabel->setBuddy(mail);
    QString promise = tr("Only what you see here is sent, never a clip.");
    if (!way.isEmpty())
        promise += u' ' + way;
    auto *buttons = new QHBoxLayout;
    buttons->setSpacing(8);
    buttons->addWidget(status, 1);
    buttons->addWidget(close, 0, Qt::AlignBottom);
    buttons->addWidget(send, 0, Qt::AlignBottom);

    auto *grid = new QGridLayout(this);
    grid->setContentsMargins(kMargin, kMargin, kMargin, kMargin - 4);
    grid->setHorizontalSpacing(10);
    grid->setVerticalSpacing(8);
    grid->setColumnStretch(1, 1);
    grid->setRowStretch(0, 1);
    grid->addWidget(textLabel, 0, 0, Qt::AlignRight | Qt::AlignTop);
    grid->addWidget(text, 0, 1);
    grid->addWidget(mailLabel, 1, 0, Qt::AlignRight);
    grid->addWidget(mail, 1, 1);
    grid->addWidget(system, 2, 1);
    grid->addWidget(new PaneNote(promise), 3, 1);
    grid->setRowMinimumHeight(4, 6);
    grid->addLayout(buttons, 5, 0, 1, 2);
}
