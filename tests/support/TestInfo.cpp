#include "platform/Info.h"

#include <QFile>

/// The information record of the program that journeys run against servers of their own: it takes
/// from the environment what the program that people run has fixed.
Info Info::main()
{
    const QString version =
        qEnvironmentVariable("QUILLMARSH_TEST_VERSION", QStringLiteral("1.0.0"));
    Info info;
    info.bundleIdentifier = QStringLiteral("org.quillmarsh.Quillmarsh");
    info.bundleVersion = version;
    info.bundleShortVersionString = version;
    info.feedUrl = qEnvironmentVariable("QUILLMARSH_TEST_FEED_URL");
    info.feedKey = qgetenv("QUILLMARSH_TEST_FEED_KEY");
    info.feedbackUrl = qEnvironmentVariable("QUILLMARSH_TEST_FEEDBACK_URL");
    QFile authorities(qEnvironmentVariable("QUILLMARSH_TEST_AUTHORITIES"));
    if (authorities.open(QIODevice::ReadOnly))
        info.certificateAuthorities = authorities.readAll();
    return info;
}
