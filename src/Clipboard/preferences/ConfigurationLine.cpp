#include "Clipboard/preferences/ConfigurationLine.h"

#include "looks/Looks.h"

#include <QFontDatabase>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QPushButton>

#include <utility>

namespace {

constexpr int kWidth = 320;

} // namespace

ConfigurationLine::ConfigurationLine(const QString &about, Copy copy)
    : m_copy(std::move(copy)), m_field(new QLineEdit)
{
    m_field->setReadOnly(true);
    m_field->setAccessibleName(about);
    // Configurations are written from left to right in every language.
    m_field->setLayoutDirection(Qt::LeftToRight);
    QFont font = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    font.setPointSizeF(m_field->font().pointSizeF());
    m_field->setFont(Looks::scaled(font, Looks::kSmallScale));
    m_field->setFixedWidth(kWidth);
    auto *button = new QPushButton(tr("Copy"));
    button->setAutoDefault(false);
    connect(button, &QPushButton::clicked, this, [this] { m_copy(m_text); });
    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_field);
    layout->addWidget(button);
}

void ConfigurationLine::setText(const QString &text)
{
    m_text = text;
    m_field->setText(QString(text).replace(u'\n', QStringLiteral("  ↵  ")));
    m_field->setCursorPosition(0);
}
