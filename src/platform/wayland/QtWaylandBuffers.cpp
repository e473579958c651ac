#include "platform/wayland/QtWaylandBuffers.h"

#include <QLoggingCategory>
#include <QOpenGLContext>

#include <tuple>

void keepQtWaylandFromOpenGL()
{
    constexpr const char *kIntegration = "QT_WAYLAND_CLIENT_BUFFER_INTEGRATION";
    if (qEnvironmentVariableIsSet(kIntegration))
        return;
    // Qt looks for the way of that name once, and does without when there is none. It would be read
    // by programs that we start as well, so it looks now; and it need not tell that it found none.
    qputenv(kIntegration, "none");
    QLoggingCategory::setFilterRules(QStringLiteral("qt.qpa.wayland=false"));
    std::ignore = QOpenGLContext::supportsThreadedOpenGL();
    QLoggingCategory::setFilterRules(QString());
    qunsetenv(kIntegration);
}
