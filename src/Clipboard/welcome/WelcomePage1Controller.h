#pragma once

#include "Clipboard/welcome/WelcomePage.h"

class QCheckBox;
class QLabel;

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
    /// Explains what the desktop will ask for, and whether it shall now; hidden where it asks
    /// nobody.
    void offerToAsk(bool isOffered);

    QCheckBox *ask;
    QCheckBox *moveIn; ///< Hidden until there is something to take along.

private:
    QLabel *m_question;
};
