#pragma once

#include <QTranslator>

/// The words of the user's language, ours and those of Qt's own dialogs, and the direction that the
/// language is written in. Owned by a main, made after the application object and before any
/// widget. The language is the one that the session asks for first (LANGUAGE, LC_MESSAGES) and that
/// there is a catalogue for; English otherwise.
class Translations
{
public:
    Translations();

private:
    QTranslator m_qtWords;
    QTranslator m_ownWords;
};
