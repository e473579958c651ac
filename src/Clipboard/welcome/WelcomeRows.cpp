#include "Clipboard/welcome/WelcomeRows.h"

#include "Clipboard/welcome/KeyCaps.h"
#include "looks/PaneParts.h"
#include "looks/WindowIcons.h"

#include <QGridLayout>
#include <QLabel>

namespace {

constexpr int kIconExtent = 34;

} // namespace

WelcomeRows::WelcomeRows(QWidget *parent) : WelcomeStage(parent), m_grid(new QGridLayout(this))
{
    m_grid->setContentsMargins(28, 16, 28, 16);
    m_grid->setHorizontalSpacing(20);
    m_grid->setVerticalSpacing(8);
    m_grid->setColumnStretch(1, 1);
}

KeyCaps *WelcomeRows::addKeys(const QStringList &keys, const QString &meaning)
{
    m_keys.append(new KeyCaps(keys, this));
    add(m_keys.last(), meaning);
    return m_keys.last();
}

void WelcomeRows::addIcon(const QString &icon, const QString &meaning)
{
    m_icons.append({icon, new QLabel(this)});
    add(m_icons.last().label, meaning);
}

void WelcomeRows::add(QWidget *left, const QString &meaning)
{
    const int row = m_grid->rowCount();
    m_grid->addWidget(left, row, 0, Qt::AlignLeft | Qt::AlignVCenter);
    m_grid->addWidget(makeWrappedLabel(meaning, this), row, 1);
    m_grid->setRowStretch(row, 1);
}

void WelcomeRows::setColors(const ClipColors &colors)
{
    WelcomeStage::setColors(colors);
    for (KeyCaps *keys : std::as_const(m_keys))
        keys->setColors(KeyCapColors::ofScheme(colors));
    for (const Icon &icon : std::as_const(m_icons))
        icon.label->setPixmap(
            WindowIcons::pixmap(icon.name, kIconExtent, colors.accentText, devicePixelRatioF()));
}
