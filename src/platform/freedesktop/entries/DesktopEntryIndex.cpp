#include "platform/freedesktop/entries/DesktopEntryIndex.h"

#include <QFileInfo>
#include <QRegularExpression>

#include <algorithm>

namespace {

bool isInterpreter(const QString &processName)
{
    static const QRegularExpression pattern(
        QStringLiteral("^(python|perl|ruby|java|node|nodejs|electron|mono|wine(64)?(-preloader)?|"
                       "gjs|sh|bash|dash|lua|guile|php|tclsh|wish)[0-9.-]*$"));
    return pattern.match(processName).hasMatch();
}

} // namespace

DesktopEntryIndex::DesktopEntryIndex(std::vector<DesktopApplication> applications)
    : m_applications(std::move(applications))
{
    std::vector<const DesktopApplication *> order;
    for (const DesktopApplication &application : m_applications)
        order.push_back(&application);
    // A program that shows itself in menus explains a window better than a helper does, and the
    // entry that starts a program plainly better than one that asks it for something special.
    std::stable_sort(order.begin(), order.end(), [](const auto *left, const auto *right) {
        return std::pair(!left->isDisplayed, left->argumentCount) <
               std::pair(!right->isDisplayed, right->argumentCount);
    });
    const auto put = [](Table &table, const QString &key, const DesktopApplication *application) {
        if (!key.isEmpty() && !table.contains(key.toLower()))
            table.insert(key.toLower(), application);
    };
    for (const DesktopApplication *application : order) {
        // Without regard to case, in which entries and windows often disagree.
        put(m_byWindowClass, application->startupWmClass, application);
        put(m_byId, application->id, application);
        put(m_byLastPart, application->id.section(u'.', -1), application);
        put(m_byProgram, application->program, application);
        if (!application->programFile.isEmpty() &&
            !m_byProgramFile.contains(application->programFile))
            m_byProgramFile.insert(application->programFile, application);
    }
}

const DesktopApplication *DesktopEntryIndex::first(const Table &table,
                                                   std::initializer_list<QStringView> keys)
{
    for (const QStringView key : keys) {
        const auto *found = key.isEmpty() ? nullptr : table.value(key.toString().toLower());
        if (found)
            return found;
    }
    return nullptr;
}

const DesktopApplication *DesktopEntryIndex::find(const WindowIdentity &window) const
{
    const QStringView name = window.resourceName;
    const QStringView windowClass = window.resourceClass;
    // The name goes before the class: a web application's window shares the browser's class and
    // has a name of its own, for which it has an entry.
    if (const auto *found = first(m_byWindowClass, {name, windowClass}))
        return found;
    if (const auto *found = first(m_byId, {window.gtkApplicationId, windowClass, name}))
        return found;
    // An id in reverse domain order: toolkits make the class of its last part.
    if (const auto *found = first(m_byLastPart, {windowClass, name}))
        return found;
    // A process that runs somebody else's program says nothing about which one it runs.
    if (!isInterpreter(QFileInfo(window.programPath).fileName())) {
        if (const auto *found = findProgram(window.programPath))
            return found;
    }
    const QStringView process =
        isInterpreter(window.processName) ? QStringView() : window.processName;
    return first(m_byProgram, {process, windowClass, name});
}

const DesktopApplication *DesktopEntryIndex::findProgram(const QString &path) const
{
    return m_byProgramFile.value(path);
}
