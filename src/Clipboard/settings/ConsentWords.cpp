#include "Clipboard/settings/ConsentWords.h"

#include <QCoreApplication>

QString ConsentWords::explanation()
{
    return QCoreApplication::translate(
        "ConsentWords",
        "This desktop shows copies to a program, and lets it paste, only as remote control. It "
        "asks you once: switch on “Allow Remote Interaction”, leave the other two on, and choose "
        "“Share”. A sharing sign then stays in the top bar; ending it there ends recording.");
}
