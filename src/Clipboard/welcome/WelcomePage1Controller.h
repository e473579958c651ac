#pragma once

#include "Clipboard/welcome/WelcomePage.h"

class QCheckBox;

/// The welcome's first page: what the program does, and two choices. The window's controller reads
/// the check boxes when the page is left; the page itself does nothing with them.
class WelcomePage1Controller : public WelcomePage
{
    Q_OBJECT

public:
    WelcomePage1Controller();

    // ^WelcomePage
    void setColors(const ClipColors &colors) override;

    QCheckBox *openAtLogin;
    QCheckBox *checkForUpdates;
};
