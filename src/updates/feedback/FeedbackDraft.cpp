#include "updates/feedback/FeedbackDraft.h"

#include "updates/PrivateFile.h"

#include <QFile>
#include <QFileInfo>
#include <QJsonDocument>
#include <QJsonObject>

namespace {

constexpr qint64 kMaxBytes = qint64{1024} * 1024;
constexpr QLatin1String kText("text");
constexpr QLatin1String kMail("mail");
constexpr QLatin1String kSystem("system");
constexpr QLatin1String kRefused("refused");

} // namespace

FeedbackDraft FeedbackDraft::load(const QString &path)
{
    QFile file(path);
    if (!QFileInfo(path).isFile() || !file.open(QIODevice::ReadOnly))
        return {};
    const QJsonObject fields = QJsonDocument::fromJson(file.read(kMaxBytes)).object();
    FeedbackDraft draft;
    draft.text = fields[kText].toString();
    draft.mail = fields[kMail].toString();
    draft.isSystemWanted = fields[kSystem].toBool();
    draft.isRefused = fields[kRefused].toBool();
    return draft;
}

bool FeedbackDraft::save(const QString &path) const
{
    if (isEmpty())
        return !QFile::exists(path) || QFile::remove(path);
    const QJsonObject fields{
        {kText, text}, {kMail, mail}, {kSystem, isSystemWanted}, {kRefused, isRefused}};
    return PrivateFile::write(path, QJsonDocument(fields).toJson());
}
