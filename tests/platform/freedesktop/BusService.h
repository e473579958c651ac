#pragma once

#include <QCoreApplication>
#include <QDBusConnection>
#include <QObject>
#include <QSemaphore>
#include <QThread>

#include <functional>
#include <memory>

/// Another program on the session bus: an object that answers on a thread and a connection of its
/// own, so that it answers while the test's thread waits, and can hang while it does not.
template <typename Service>
class BusService
{
public:
    BusService(const QString &name, const QString &path) : m_name(name), m_path(path)
    {
        m_thread.start();
        m_service = std::make_unique<Service>();
        m_service->moveToThread(&m_thread);
        appear();
    }

    ~BusService()
    {
        resume();
        vanish();
        m_service.release()->deleteLater();
        m_thread.quit();
        m_thread.wait();
    }

    /// Runs `question` on the service's thread and returns its result.
    template <typename Question>
    auto ask(Question question)
    {
        std::invoke_result_t<Question, Service &> answer;
        QMetaObject::invokeMethod(
            m_service.get(), [&] { answer = question(*m_service); }, Qt::BlockingQueuedConnection);
        return answer;
    }

    void tell(std::function<void(Service &)> order)
    {
        QMetaObject::invokeMethod(
            m_service.get(), [&] { order(*m_service); }, Qt::BlockingQueuedConnection);
    }

    /// The program ends, or starts again.
    void vanish() { QDBusConnection::disconnectFromBus(connectionName()); }
    void appear()
    {
        tell([this](Service &service) {
            auto bus = QDBusConnection::connectToBus(QDBusConnection::SessionBus, connectionName());
            service.reset();
            bus.registerObject(m_path, &service, QDBusConnection::ExportAllContents);
            bus.registerService(m_name);
        });
    }

    /// From now on nothing is answered, until resume().
    void hang()
    {
        m_isHanging = true;
        QMetaObject::invokeMethod(
            m_service.get(), [this] { m_resumed.acquire(); }, Qt::QueuedConnection);
    }
    void resume()
    {
        if (std::exchange(m_isHanging, false))
            m_resumed.release();
    }

private:
    QString connectionName() const { return QStringLiteral("test service ") + m_name; }

    QString m_name;
    QString m_path;
    QThread m_thread;
    QSemaphore m_resumed;
    bool m_isHanging = false;
    std::unique_ptr<Service> m_service;
};
