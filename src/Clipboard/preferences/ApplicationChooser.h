#pragma once

#include "platform/InstalledApplications.h"

#include <QDialog>
#include <QPointer>

class InstalledApplicationsModel;
class PaneNote;
class QFileDialog;
class QLineEdit;
class QListView;
class QPushButton;
class QSortFilterProxyModel;

/// Lets the user choose one application: from those that are installed, narrowed by a filter, or
/// by the file of a program. Does not block anything else. Owned by the pane that opens it.
class ApplicationChooser : public QDialog
{
    Q_OBJECT

public:
    /// `applications` must outlive the chooser.
    explicit ApplicationChooser(InstalledApplications &applications, QWidget *parent = nullptr);
    ~ApplicationChooser() override;

    /// Chooses the file at `path`, as "Other…" does. A file that is no application is refused with
    /// a line in the chooser, which stays open.
    void chooseFile(const QString &path);

Q_SIGNALS:
    /// The chooser was closed: with a choice, told as a bundle's file name and its path, or
    /// without.
    void ended(bool isOk, const QString &bundleFileName, const QString &path);

protected:
    // ^QDialog
    void done(int result) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void layOut();
    void filterChanged(const QString &text);
    void selectionChanged();
    void chooseSelected();
    void choose(const InstalledApplication &application);
    void openFileDialog();

    InstalledApplications &m_applications;
    InstalledApplicationsModel *m_model;
    QSortFilterProxyModel *m_filtered;
    QLineEdit *m_filter;
    QListView *m_list;
    PaneNote *m_note;
    QPushButton *m_other;
    QPushButton *m_cancel;
    QPushButton *m_choose;
    QPointer<QFileDialog> m_fileDialog;
    InstalledApplication m_choice;
};
