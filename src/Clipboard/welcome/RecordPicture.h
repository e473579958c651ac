#pragma once

#include "Clipboard/welcome/WelcomeStage.h"

/// The picture of what the program does: copies from several places meet in the history, and one
/// of them lands in another document. Without a word, so that it needs no translation.
class RecordPicture : public WelcomeStage
{
    Q_OBJECT

public:
    using WelcomeStage::WelcomeStage;

protected:
    void paintEvent(QPaintEvent *event) override;
};
