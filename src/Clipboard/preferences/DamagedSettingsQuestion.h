#pragma once

#include <QMessageBox>

class SettingsStore;

/// Asks whether to start with fresh settings when the stored ones could not be read and were set
/// aside. Nothing is recorded until it is answered. Deletes itself once it is closed; `settings`
/// must outlive it.
class DamagedSettingsQuestion : public QMessageBox
{
    Q_OBJECT

public:
    explicit DamagedSettingsQuestion(SettingsStore &settings);

Q_SIGNALS:
    /// The user would rather look at the damaged file first.
    void quitChosen();
};
