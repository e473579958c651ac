#include "preview/decoders/PreparedFonts.h"

#include <QByteArray>
#include <QFont>
#include <QFontDatabase>
#include <QTextLayout>

#include <array>
#include <memory>
#include <set>

#include <fontconfig/fontconfig.h>

namespace {

constexpr std::array kFamilies{"sans-serif", "serif", "monospace"};

struct Script
{
    QFontDatabase::WritingSystem system;
    char16_t letter; ///< That a font of the script has.
};

/// That a drawing's text is likely to be in.
constexpr std::array kScripts{
    Script{QFontDatabase::Greek, u'Ω'},
    Script{QFontDatabase::Cyrillic, u'б'},
    Script{QFontDatabase::Arabic, u'ع'},
    Script{QFontDatabase::Hebrew, u'א'},
    Script{QFontDatabase::Devanagari, u'अ'},
    Script{QFontDatabase::Thai, u'ก'},
    Script{QFontDatabase::SimplifiedChinese, u'中'},
    Script{QFontDatabase::Japanese, u'あ'},
    Script{QFontDatabase::Korean, u'한'},
};

using Config = std::unique_ptr<FcConfig, decltype(&FcConfigDestroy)>;
using Pattern = std::unique_ptr<FcPattern, decltype(&FcPatternDestroy)>;
using FontSet = std::unique_ptr<FcFontSet, decltype(&FcFontSetDestroy)>;
using Files = std::set<QByteArray>;

Pattern wanted(FcConfig *config, const char *family, int weight, int slant)
{
    Pattern pattern(FcPatternCreate(), &FcPatternDestroy);
    FcPatternAddString(pattern.get(), FC_FAMILY, reinterpret_cast<const FcChar8 *>(family));
    FcPatternAddInteger(pattern.get(), FC_WEIGHT, weight);
    FcPatternAddInteger(pattern.get(), FC_SLANT, slant);
    FcConfigSubstitute(config, pattern.get(), FcMatchPattern);
    FcDefaultSubstitute(pattern.get());
    return pattern;
}

void addFile(const FcPattern *font, Files *files)
{
    FcChar8 *file = nullptr;
    if (font && FcPatternGetString(font, FC_FILE, 0, &file) == FcResultMatch)
        files->insert(QByteArray(reinterpret_cast<const char *>(file)));
}

/// The first of `fonts` that has each of the letters.
void addForScripts(const FcFontSet &fonts, Files *files)
{
    for (const Script &script : kScripts) {
        for (int i = 0; i < fonts.nfont; ++i) {
            FcCharSet *letters = nullptr;
            if (FcPatternGetCharSet(fonts.fonts[i], FC_CHARSET, 0, &letters) == FcResultMatch &&
                FcCharSetHasChar(letters, script.letter)) {
                addFile(fonts.fonts[i], files);
                break;
            }
        }
    }
}

Files chosen(FcConfig *config)
{
    Files files;
    FcResult result = FcResultMatch;
    for (const char *family : kFamilies) {
        for (const int weight : {FC_WEIGHT_REGULAR, FC_WEIGHT_BOLD}) {
            for (const int slant : {FC_SLANT_ROMAN, FC_SLANT_ITALIC}) {
                const Pattern pattern = wanted(config, family, weight, slant);
                addFile(
                    Pattern(FcFontMatch(config, pattern.get(), &result), &FcPatternDestroy).get(),
                    &files);
            }
        }
    }
    const Pattern pattern = wanted(config, kFamilies[0], FC_WEIGHT_REGULAR, FC_SLANT_ROMAN);
    const FontSet sorted(FcFontSort(config, pattern.get(), FcTrue, nullptr, &result),
                         &FcFontSetDestroy);
    if (sorted)
        addForScripts(*sorted, &files);
    return files;
}

QByteArray asRules(const Files &files)
{
    QByteArray rules = "<fontconfig><selectfont><rejectfont><glob>*</glob></rejectfont>";
    Files names = files;
    // A font is looked for only in folders that are not rejected themselves.
    for (const QByteArray &file : files)
        for (qsizetype end = file.lastIndexOf('/'); end > 0; end = file.lastIndexOf('/', end - 1))
            names.insert(file.left(end));
    for (QByteArray name : names) {
        // Any one letter, in place of those that mean something in a rule.
        for (const char special : {'*', '[', '\\', '&', '<', '>'})
            name.replace(special, '?');
        rules += "<acceptfont><glob>" + name + "</glob></acceptfont>";
    }
    return rules + "</selectfont></fontconfig>";
}

} // namespace

void PreparedFonts::chooseFew()
{
    const Config all(FcInitLoadConfigAndFonts(), &FcConfigDestroy);
    if (!all)
        return;
    const QByteArray rules = asRules(chosen(all.get()));
    const Config few(FcConfigCreate(), &FcConfigDestroy);
    if (few && FcConfigParseAndLoad(few.get(), nullptr, FcTrue) &&
        FcConfigParseAndLoadFromMemory(
            few.get(), reinterpret_cast<const FcChar8 *>(rules.constData()), FcTrue) &&
        FcConfigBuildFonts(few.get()))
        FcConfigSetCurrent(few.get());
}

void PreparedFonts::load()
{
    // What none has would be looked for in all.
    QString sample = QStringLiteral("A");
    for (const Script &script : kScripts)
        if (!QFontDatabase::families(script.system).isEmpty())
            sample += QChar(script.letter);
    // A font whose face is in use has no need of its file in any other size.
    for (const char *family : kFamilies) {
        for (const QFont::Weight weight : {QFont::Normal, QFont::Bold}) {
            for (const bool isItalic : {false, true}) {
                QTextLayout layout(sample,
                                   QFont(QString::fromLatin1(family), -1, weight, isItalic));
                layout.beginLayout();
                layout.createLine();
                layout.endLayout();
            }
        }
    }
}
