#pragma once

#include <QString>

/// Held while an installation is being replaced, so that no two processes do it at once. The system
/// lets go of it when the process ends in whatever way.
class UpdateLock
{
public:
    UpdateLock() = default;
    ~UpdateLock() { release(); }
    UpdateLock(const UpdateLock &) = delete;
    UpdateLock &operator=(const UpdateLock &) = delete;

    enum class Outcome {
        Taken,
        Busy,       ///< Another holds it.
        Impossible, ///< The file cannot be made or locked.
    };

    [[nodiscard]] Outcome take(const QString &path);
    void release();

private:
    int m_file = -1;
};
