#pragma once

#include <QObject>
#include <QString>

#include <memory>

/// Notices that a file is written, replaced, removed or comes back. Owned by the FilePreview that
/// shows it. Only follow() touches the file's file system, which may hang, so it runs elsewhere.
class FileWatch : public QObject
{
    Q_OBJECT

public:
    /// What follow() needs; outlives the watch on threads that hang.
    class Descriptor;

    explicit FileWatch(const QString &path);
    ~FileWatch() override;

    std::shared_ptr<Descriptor> descriptor() const { return m_descriptor; }

    /// Begins to watch the file and its folder, where it comes back. On a helper thread; again
    /// after each change, because there may be another file by that name now. What the system
    /// cannot watch is not.
    static void follow(Descriptor &descriptor);

Q_SIGNALS:
    /// The file may have changed. Comes in bursts.
    void changed();

private:
    void readEvents();

    const std::shared_ptr<Descriptor> m_descriptor;
};
