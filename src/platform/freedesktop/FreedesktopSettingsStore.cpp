#include "platform/freedesktop/FreedesktopSettingsStore.h"

#include "platform/Info.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLoggingCategory>
#include <QSaveFile>
#include <QStandardPaths>

#include <plist/plist.h>
#include <sys/stat.h>

#include <cstdio>

Q_LOGGING_CATEGORY(lcSettings, "quillmarsh.settings")

namespace {

constexpr qint64 kMaxBytes = 16 * 1024 * 1024;

/// The types that a setting may have, in the form in which they come back from the file; invalid
/// for anything else.
QVariant storable(const QVariant &value)
{
    const PropertyList::Tree tree = PropertyList::fromVariant(value);
    return tree ? PropertyList::toVariant(tree.get()) : QVariant();
}

bool isSame(const QVariant &left, const QVariant &right)
{
    // QVariant finds true equal to 1, which are different settings.
    return left.typeId() == right.typeId() && left == right;
}

/// A link that points nowhere stands for a file that does not exist yet.
bool existsAsLinkOrFile(const QFileInfo &info)
{
    return info.exists() || info.isSymLink();
}

void put(void *document, const QString &key, const QVariant &value)
{
    const QByteArray name = key.toUtf8();
    if (PropertyList::Tree tree = PropertyList::fromVariant(value))
        plist_dict_set_item(document, name.constData(), tree.release());
    else
        plist_dict_remove_item(document, name.constData());
}

} // namespace

QString FreedesktopSettingsStore::standardLocation()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) + u'/' +
           Info::main().bundleIdentifier + QStringLiteral(".plist");
}

FreedesktopSettingsStore::FreedesktopSettingsStore(const QString &path, QObject *parent)
    : SettingsStore(parent), m_path(path), m_document(plist_new_dict())
{
    load();
}

FreedesktopSettingsStore::Stamp FreedesktopSettingsStore::stamp() const
{
    struct stat status = {};
    if (::stat(QFile::encodeName(m_path).constData(), &status) != 0)
        return {};
    return {status.st_ino, status.st_size, status.st_mtim.tv_sec, status.st_mtim.tv_nsec};
}

PropertyList::Tree FreedesktopSettingsStore::readFile(QString *problem) const
{
    const QFileInfo info(m_path);
    if (!info.exists())
        return nullptr;
    // Opening a pipe or a device could wait for ever.
    if (!info.isFile() || info.size() > kMaxBytes) {
        *problem = QStringLiteral("it is not a file of settings");
        return nullptr;
    }
    QFile file(m_path);
    if (!file.open(QIODevice::ReadOnly)) {
        *problem = file.errorString();
        return nullptr;
    }
    PropertyList::Tree document = PropertyList::parse(file.read(kMaxBytes));
    if (document && plist_get_node_type(document.get()) == PLIST_DICT)
        return document;
    *problem = QStringLiteral("it is not a property list with settings");
    return nullptr;
}

void FreedesktopSettingsStore::load()
{
    const Stamp found = stamp();
    QString problem;
    if (PropertyList::Tree document = readFile(&problem)) {
        m_stamp = found;
        m_document = std::move(document);
        for (const auto &[key, node] : PropertyList::entries(m_document.get())) {
            const QVariant value = PropertyList::toVariant(node);
            if (value.isValid())
                m_values.insert(key, value);
        }
        return;
    }
    if (!problem.isEmpty()) {
        setAside(problem);
        m_areDamaged = true;
        return;
    }
    m_stamp = found;
    const QFileInfo info(m_path);
    const QString pattern = info.fileName() + QStringLiteral(".damaged-*");
    m_areDamaged =
        !info.dir().entryList({pattern}, QDir::AllEntries | QDir::System | QDir::Hidden).isEmpty();
}

bool FreedesktopSettingsStore::setAside(const QString &problem)
{
    QString target;
    for (int number = 1; target.isEmpty() || existsAsLinkOrFile(QFileInfo(target)); ++number)
        target = m_path + QStringLiteral(".damaged-%1").arg(number);
    // QFile::rename falls back to copying; the file must move or stay.
    if (::rename(QFile::encodeName(m_path).constData(), QFile::encodeName(target).constData()) !=
        0) {
        qCWarning(lcSettings, "The settings in %s cannot be used (%s) and cannot be set aside: %s",
                  qUtf8Printable(m_path), qUtf8Printable(problem),
                  qUtf8Printable(qt_error_string()));
        return false;
    }
    qCWarning(lcSettings, "The settings in %s cannot be used (%s); the file is now %s",
              qUtf8Printable(m_path), qUtf8Printable(problem), qUtf8Printable(target));
    m_stamp = Stamp();
    return true;
}

QVariant FreedesktopSettingsStore::value(const QString &key) const
{
    const auto stored = m_values.constFind(key);
    return stored == m_values.constEnd() ? m_defaults.value(key) : *stored;
}

void FreedesktopSettingsStore::registerDefault(const QString &key, const QVariant &value)
{
    m_defaults.insert(key, value);
}

void FreedesktopSettingsStore::setValue(const QString &key, const QVariant &value)
{
    const QVariant wanted = storable(value);
    if (value.isValid() && !wanted.isValid()) {
        qCWarning(lcSettings, "A setting cannot be of the type %s: %s stays as it was",
                  value.typeName(), qUtf8Printable(key));
        return;
    }
    const QVariant before = this->value(key);
    const bool isStoredAlready = isSame(m_values.value(key), wanted);
    if (wanted.isValid())
        m_values.insert(key, wanted);
    else
        m_values.remove(key);
    if (!isStoredAlready)
        m_unsaved.insert(key, wanted);
    if (!m_unsaved.isEmpty())
        save();
    if (!isSame(this->value(key), before))
        Q_EMIT valueChanged(key);
    Q_EMIT valueStored(key);
}

void FreedesktopSettingsStore::acceptFreshSettings()
{
    if (!m_areDamaged)
        return;
    // The new file is what tells later starts that the question was answered, so it is written
    // even when nothing was set.
    m_areDamaged = false;
    save();
}

bool FreedesktopSettingsStore::adoptForeignChanges()
{
    if (stamp() == m_stamp)
        return true;
    QString problem;
    if (PropertyList::Tree document = readFile(&problem))
        m_document = std::move(document);
    else if (!problem.isEmpty())
        // What was in it before stands in m_document, so nothing the user had is lost.
        return setAside(problem);
    return true;
}

void FreedesktopSettingsStore::save()
{
    if (m_areDamaged)
        return;
    QString problem;
    if (write(&problem)) {
        m_unsaved.clear();
        m_hasFailed = false;
    } else if (!m_hasFailed) {
        // One line for a disk that stays full, not one for each notch of a slider.
        m_hasFailed = true;
        qCWarning(lcSettings, "The settings could not be written to %s: %s", qUtf8Printable(m_path),
                  qUtf8Printable(problem));
    }
}

bool FreedesktopSettingsStore::write(QString *problem)
{
    if (!adoptForeignChanges()) {
        *problem = QStringLiteral("what is there cannot be set aside");
        return false;
    }
    for (auto entry = m_unsaved.begin(); entry != m_unsaved.end(); ++entry)
        put(m_document.get(), entry.key(), entry.value());
    const QFileInfo info(m_path);
    const QFileInfo target(info.isSymLink() ? info.symLinkTarget() : m_path);
    if (!QDir().mkpath(target.path())) {
        *problem = QStringLiteral("the folder cannot be made");
        return false;
    }
    // Follows a link, so that settings kept elsewhere stay there.
    QSaveFile file(m_path);
    const QByteArray bytes = PropertyList::toXml(m_document.get());
    // Without the flush, commit() would not notice that a full disk took nothing, and would put an
    // empty file in place of the good one.
    const bool isWritten = file.open(QIODevice::WriteOnly) &&
                           file.setPermissions(QFileDevice::ReadOwner | QFileDevice::WriteOwner) &&
                           file.write(bytes) == bytes.size() && file.flush() && file.commit();
    if (!isWritten)
        *problem = file.errorString();
    else
        m_stamp = stamp();
    return isWritten;
}
