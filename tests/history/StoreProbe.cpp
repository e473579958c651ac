// A process of its own for what a test must not do in its own: it opens a store as the application
// does, and may be killed or stopped by that.
//   store_probe open FOLDER    prints the texts of the clips, newest first
//   store_probe burst FOLDER   adds clips until it is killed; prints the number of each once saved
//   store_probe add FOLDER     adds the clip "added" and prints as open does; as nobody for root

#include "history/HistoryRig.h"

#include <QCoreApplication>

#include <cstdio>
#include <sys/resource.h>
#include <unistd.h>

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
    if (mode == QStringLiteral("add"))
        rig.add(QStringLiteral("added"));
    std::puts(qUtf8Printable(rig.texts().join(u'\n')));
    return 0;
}
