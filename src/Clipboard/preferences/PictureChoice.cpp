#include "Clipboard/preferences/PictureChoice.h"

#include "Clipboard/preferences/OnlyIntegerNumberFormatter.h"
#include "Clipboard/settings/SettingsKeys.h"
#include "platform/SettingsStore.h"

#include <QCheckBox>
#include <QLineEdit>

#include <algorithm>

namespace {

constexpr qint64 kBytes = qint64(1000) * 1000;

} // namespace

PictureChoice::PictureChoice(SettingsStore &settings)
    : box(new QCheckBox(tr("&Keep copied pictures"))), size(new QLineEdit), m_settings(settings)
{
    box->setAccessibleName(tr("Keep copied pictures"));
    size->setAccessibleName(tr("Maximum picture size in megabytes"));
    size->setAlignment(Qt::AlignRight);
    size->setFixedWidth(size->fontMetrics().averageCharWidth() * 7);
    size->setValidator(new OnlyIntegerNumberFormatter(size));
    connect(box, &QCheckBox::clicked, this, &PictureChoice::boxClicked);
    connect(size, &QLineEdit::textEdited, this, &PictureChoice::sizeEdited);
    connect(size, &QLineEdit::editingFinished, this, &PictureChoice::sizeLeft);
}

void PictureChoice::load()
{
    box->setChecked(m_settings.boolForKey(SettingsKeys::kKeepPictures));
    size->setEnabled(box->isChecked());
    if (m_settings.contains(SettingsKeys::kMaxPictureSize))
        m_size = static_cast<int>(std::clamp<qint64>(
            m_settings.integerForKey(SettingsKeys::kMaxPictureSize), 1, kMaxSize));
    size->setText(QString::number(m_size));
    Q_EMIT changed();
}

qint64 PictureChoice::maxBytes() const
{
    return box->isChecked() ? m_size * kBytes : 0;
}

void PictureChoice::selectSize()
{
    size->setFocus(Qt::OtherFocusReason);
    size->selectAll();
}

void PictureChoice::boxClicked()
{
    m_settings.setValue(SettingsKeys::kKeepPictures, box->isChecked());
    size->setEnabled(box->isChecked());
    Q_EMIT changed();
}

void PictureChoice::sizeEdited()
{
    const qint64 typed = OnlyIntegerNumberFormatter::integerValue(size->text());
    // Half a number on its way to another one is no choice yet.
    if (typed < 1)
        return;
    m_size = static_cast<int>(std::min<qint64>(typed, kMaxSize));
    m_settings.setValue(SettingsKeys::kMaxPictureSize, qlonglong(m_size));
    Q_EMIT changed();
}

/// The field is left with the number that counts.
void PictureChoice::sizeLeft()
{
    size->setText(QString::number(m_size));
}
