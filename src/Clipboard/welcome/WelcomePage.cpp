#include "Clipboard/welcome/WelcomePage.h"

#include "Clipboard/welcome/WelcomeStage.h"
#include "looks/Looks.h"
#include "looks/PaneParts.h"

#include <QLabel>
#include <QVBoxLayout>

namespace {

constexpr int kSideMargin = Looks::kPageMargin;
constexpr qreal kTitleScale = Looks::kHeadlineScale;

} // namespace

WelcomePage::WelcomePage(WelcomeStage *stage, const QString &title, const QString &text)
    : m_stage(stage), m_title(makeWrappedLabel(title, this)), m_text(makeWrappedLabel(text, this)),
      m_note(makeWrappedLabel(QString(), this)), m_column(new QVBoxLayout(this))
{
    m_column->setContentsMargins(kSideMargin, kSideMargin, kSideMargin, 6);
    m_column->setSpacing(8);
    m_column->addWidget(stage);
    m_column->addSpacing(10);
    m_column->addWidget(m_title);
    m_column->addWidget(m_text);
    m_column->addWidget(m_note);
    m_note->hide();
    m_column->addStretch();
    stage->show();
}

void WelcomePage::addBelow(QLayout *layout)
{
    m_column->insertSpacing(m_column->count() - 1, 6);
    m_column->insertLayout(m_column->count() - 1, layout);
}

void WelcomePage::setNote(const QString &note)
{
    m_note->setText(note);
    m_note->setVisible(!note.isEmpty());
}

void WelcomePage::setColors(const ClipColors &colors)
{
    m_stage->setColors(colors);
    m_title->setFont(Looks::scaled(font(), kTitleScale, QFont::DemiBold));
    QPalette palette = this->palette();
    palette.setColor(QPalette::WindowText, colors.text);
    palette.setColor(QPalette::Text, colors.text);
    setPalette(palette);
}
