#include "looks/Translations.h"

#include <QGuiApplication>
#include <QLibraryInfo>
#include <QLocale>

Translations::Translations()
{
    const QLocale session = QLocale::system();
    if (!m_ownWords.load(session, QStringLiteral("quillmarsh"), QStringLiteral("_"),
                         QStringLiteral(":/translations")))
        return;
    QCoreApplication::installTranslator(&m_ownWords);
    // Qt may speak more languages than we do; a dialog in two of them helps nobody.
    const QLocale language(m_ownWords.language());
    if (m_qtWords.load(language, QStringLiteral("qtbase"), QStringLiteral("_"),
                       QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        QCoreApplication::installTranslator(&m_qtWords);
    QGuiApplication::setLayoutDirection(language.textDirection());
}
