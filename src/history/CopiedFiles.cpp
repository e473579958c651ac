#include "history/CopiedFiles.h"

#include <algorithm>

QStringList CopiedFiles::of(const std::optional<QString> &text,
                            const std::optional<QString> &filepath)
{
    if (!text || !filepath || !text->startsWith(*filepath))
        return {};
    QStringList lines = text->split(u'\n');
    for (QString &line : lines)
        if (line.endsWith(u'\r'))
            line.chop(1);
    if (lines.last().isEmpty())
        lines.removeLast();
    const bool areFiles = lines.size() > 1 && lines.first() == *filepath &&
                          std::all_of(lines.begin(), lines.end(), [](const QString &line) {
                              return line.startsWith(u'/') && !line.contains(QChar(u'\0'));
                          });
    return areFiles ? lines : QStringList();
}
