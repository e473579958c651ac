#pragma once

#include "Clipboard/preferences/ApplicationDef.h"
#include "Clipboard/preferences/IgnoredApplicationsModel.h"
#include "Clipboard/settings/SettingsKeys.h"
#include "platform/InstalledApplications.h"
#include "preferenceswindow/CCNPreferencesWindowControllerProtocol.h"

#include <QList>
#include <QObject>
#include <QPointer>
#include <QTableView>

#include <memory>

class ApplicationChooser;
class ApplicationsPaneView;
class SettingsStore;
class Workspace;

/// The "Applications" pane: the list of applications whose copies are never recorded, kept under
/// "applicationsToIgnore". Owned by the application delegate, through which capture reads data().
class PreferencesApplicationViewController : public QObject,
                                             public CCNPreferencesWindowControllerProtocol
{
    Q_OBJECT

public:
    static constexpr double kRowHeight = 20.0;

    const QString preferenceKey = SettingsKeys::kApplicationsToIgnore;

    /// All must outlive the pane.
    PreferencesApplicationViewController(SettingsStore &settings,
                                         InstalledApplications &installedApplications,
                                         Workspace &workspace);
    ~PreferencesApplicationViewController() override;

    /// Reads the stored list; without one the list stays as it is. A stored list that cannot be
    /// read ends the program: recording on without it would record what the user excluded.
    void loadPreferences();
    void savePreferences();

    /// The ignored applications in the order in which they were added.
    const QList<ApplicationDef> &data() const { return m_data; }

    /// Opens the chooser; its choice goes to openPanelEnded().
    void addApplication();
    /// What the chooser's end does: adds the chosen bundle, unless its file name has no extension
    /// or an application of that name is in the list.
    void openPanelEnded(bool isOk, const QString &bundleFileName, const QString &path);
    /// Removes the selected row, if there is one.
    void removeApplication();

    int numberOfRowsInTableView() const { return static_cast<int>(m_data.size()); }
    double heightOfRow(int) const { return kRowHeight; }

    /// Null before the view is loaded.
    QPointer<QTableView> tableView;

    /// The open chooser; null while there is none.
    ApplicationChooser *chooser() const;

    // ^QObject
    bool eventFilter(QObject *watched, QEvent *event) override;

    // ^CCNPreferencesWindowControllerProtocol
    QString preferenceIdentifier() const override;
    QString preferenceTitle() const override { return tr("Applications"); }
    QIcon preferenceIcon() const override;
    QWidget *view() override;

private:
    void loadView();
    void listChanged();
    void selectionChanged();
    /// -1 while no row is selected.
    int selectedRow() const;
    void offerSuggestions();
    void addSuggestions();
    /// Adds an entry unless its name is in the list.
    void append(const ApplicationDef &application);

    SettingsStore &m_settings;
    InstalledApplications &m_installedApplications;
    QList<ApplicationDef> m_data;
    IgnoredApplicationsModel m_model;
    QList<InstalledApplication> m_suggestions; ///< Offered by the empty list.
    std::unique_ptr<ApplicationsPaneView> m_view;
    QPointer<ApplicationChooser> m_chooser; ///< While it is open; deletes itself.
};
