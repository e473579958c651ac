// A process of its own for what a test must not do in its own: it opens a store as the application
// does, and may be killed or stopped by that.
//   store_probe open FOLDER         prints the texts of the clips, newest first
//   store_probe burst FOLDER        adds clips until it is killed; prints the number of each once
//   saved store_probe add FOLDER          adds the clip "added" and prints as open does; as nobody
//   for root store_probe WORK FOLDER         works until it is killed, and prints a line when it
//   begins:
//       copying     adds "clip N", counting on from what is there
//       pasting     counts pastes of 20 clips
//       trimming    as copying, with room for 30, at times for 10
//       clearing    adds "N of ROUND", 20 a round, and clears
//       returning   has 20 clips, deletes some and brings them back

#include "history/HistoryRig.h"

#include <QCoreApplication>
#include <QMap>

#include <cstdio>
#include <sys/resource.h>
#include <unistd.h>

namespace {

constexpr int kFew = 20;

void copy(HistoryRig &rig, int maxItems)
{
    rig.settings.maxItems = maxItems;
    const QString newest = rig.texts().value(0, QStringLiteral("clip -1"));
    for (int number = newest.section(u' ', 1).toInt() + 1;; ++number) {
        rig.add(QStringLiteral("clip %1").arg(number));
        if (number % 37 == 0 && maxItems < 100)
            rig.history.maxItemsModified(10);
    }
}

void fill(HistoryRig &rig)
{
    for (int i = 0; i < kFew; ++i) {
        const QString text = QStringLiteral("clip %1").arg(i);
        if (!rig.history.hasText(text))
            rig.add(text);
    }
}

void paste(HistoryRig &rig)
{
    fill(rig);
    for (std::size_t i = 0;; ++i)
        rig.history.countPaste(rig.at(i % kFew));
}

void clear(HistoryRig &rig)
{
    for (int round = 0;; ++round) {
        rig.history.clearAll();
        for (int i = 0; i < kFew; ++i)
            rig.add(QStringLiteral("%1 of %2").arg(i).arg(round));
    }
}

void bringBack(HistoryRig &rig)
{
    fill(rig);
    for (std::size_t i = 0;; i = (i + 1) % 10) {
        rig.history.deleteItems({rig.at(i), rig.at(i + 3), rig.at(i + 7)});
        rig.history.bringBack();
    }
}

} // namespace

int main(int argc, char **argv)
{
    const rlimit noCore{0, 0};
    setrlimit(RLIMIT_CORE, &noCore);
    const QCoreApplication application(argc, argv);
    const QString mode = application.arguments().value(1);
    constexpr uid_t kNobody = 65534;
    if (mode == QStringLiteral("add") && geteuid() == 0 && setuid(kNobody) != 0)
        return 2;
    HistoryRig rig(application.arguments().value(2));
    for (int i = 0; mode == QStringLiteral("burst"); ++i) {
        rig.add(QStringLiteral("clip %1").arg(i));
        std::printf("%d\n", i);
        std::fflush(stdout);
    }
    const QMap<QString, std::function<void()>> works{
        {QStringLiteral("copying"), [&rig] { copy(rig, 1'000'000); }},
        {QStringLiteral("trimming"), [&rig] { copy(rig, 30); }},
        {QStringLiteral("pasting"), [&rig] { paste(rig); }},
        {QStringLiteral("clearing"), [&rig] { clear(rig); }},
        {QStringLiteral("returning"), [&rig] { bringBack(rig); }}};
    if (works.contains(mode)) {
        std::puts("at work");
        std::fflush(stdout);
        works[mode]();
    }
    if (mode == QStringLiteral("add"))
        rig.add(QStringLiteral("added"));
    std::puts(qUtf8Printable(rig.texts().join(u'\n')));
    return 0;
}
