#pragma once

#include "Clipboard/welcome/WelcomePage.h"

class QCheckBox;

/// The welcome's first page: what the program does, and two choices, or three for a user who comes
/// from another program. The window's controller reads
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
    QCheckBox *moveIn; ///< Hidden until there is something to take along.
};
