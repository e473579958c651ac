#pragma once

#include "Clipboard/preferences/ConfigurationLine.h"

#include "platform/Capabilities.h"

#include <QWidget>

class QGridLayout;
class QPushButton;

/// What works in this session, what does not, why, and what the user can do about it. Hidden while
/// all works. Owned by the pane.
class CapabilityTable : public QWidget
{
    Q_OBJECT

public:
    explicit CapabilityTable(ConfigurationLine::Copy copy);

    /// `configuration` is all that the user may add to the desktop's; empty when there is nothing.
    void show(const Capabilities &capabilities, const QString &configuration);
    /// Offers to have the desktop ask its user for what it lets nobody do otherwise.
    void offerToAsk(bool isOffered);

Q_SIGNALS:
    void askingWanted();

private:
    const ConfigurationLine::Copy m_copy;
    QGridLayout *m_grid;
    QPushButton *m_copyAll;
    QWidget *m_question;
    QList<Capability> m_shown;
    QString m_configuration;
};
