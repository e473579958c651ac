#include "history/ClipContext.h"

#include "history/ClipItem.h"
#include "history/HistoryLog.h"
#include "history/KeptPictures.h"

#include <sqlite3.h>

#include <algorithm>
#include <limits>
#include <unordered_map>
#include <unordered_set>
#include <utility>

namespace {

const QString kFileMark = QStringLiteral("File: ");
constexpr qsizetype kDetailsLimit = 1024;               // records
constexpr qsizetype kTextsLimit = 4 * 1024 * 1024;      // bytes
constexpr qsizetype kShortTextsLimit = 2 * 1024 * 1024; // bytes
constexpr qint64 kShortTextSource = 16 * 1024;          // bytes of UTF-8

qsizetype costOf(const QString &text)
{
    return text.size() * static_cast<qsizetype>(sizeof(QChar)) + 64;
}

/// The line of a copied file; none of a picture of ours, whose text says more than its file's name.
std::optional<QString> fileLine(const ClipItem &item, const QString &storeFolder)
{
    const std::optional<QString> filepath = item.filepath();
    if (!filepath || KeptPictures::isWithin(storeFolder, *filepath))
        return std::nullopt;
    return kFileMark + *filepath;
}

} // namespace

ClipContext::ClipContext(const QString &storeFolder)
    : m_folder(storeFolder), m_store(storeFolder), m_details(kDetailsLimit), m_texts(kTextsLimit),
      m_shortTexts(kShortTextsLimit)
{
}

ClipContext::~ClipContext() = default;

/// Whether what is written is kept. What was in a store that is gone is gone, too; what is not
/// saved yet comes into the one that is in its place.
bool ClipContext::followStore()
{
    const ClipStore::Place place = m_store.follow();
    if (place != ClipStore::Place::Another)
        return place == ClipStore::Place::Same;
    qCWarning(lcHistory, "The history's file was taken away; another one is in its place");
    m_isAnother = true;
    m_deletedPks.clear();
    std::erase_if(m_changed, [](const std::shared_ptr<ClipItem> &item) {
        return item->m_pk != 0 && !item->m_unsaved->clip;
    });
    for (const std::shared_ptr<ClipItem> &item : m_changed) {
        item->m_pk = 0;
        item->m_unsaved->pk = 0;
    }
    return true;
}

bool ClipContext::isChangedByOthers()
{
    followStore();
    return m_isAnother || m_store.isChangedByOthers();
}

std::optional<ClipContext::Fetched> ClipContext::fetch(const Items &known)
{
    const std::optional<std::vector<ClipStore::Row>> rows = m_store.readRows();
    if (!rows)
        return std::nullopt;
    forgetValues();
    Fetched fetched;
    fetched.items.reserve(rows->size());
    std::unordered_map<qint64, std::shared_ptr<ClipItem>> knownByPk;
    for (const std::shared_ptr<ClipItem> &item : known) {
        if (item->m_pk == 0)
            fetched.items.push_back(item);
        else if (m_isAnother)
            fetched.gone.push_back(item);
        else
            knownByPk.emplace(item->m_pk, item);
    }
    const std::unordered_set<qint64> deleted(m_deletedPks.begin(), m_deletedPks.end());
    for (const ClipStore::Row &row : *rows) {
        if (deleted.contains(row.pk))
            continue;
        const auto met = knownByPk.extract(row.pk);
        const std::shared_ptr<ClipItem> item =
            met ? met.mapped() : std::make_shared<ClipItem>(*this);
        item->m_pk = row.pk;
        item->m_hasText = row.hasText;
        if (!item->m_unsaved || !item->m_unsaved->clip) {
            item->m_createDate = row.createDate;
            item->m_hasFilepath = row.hasFilepath;
        }
        // Pins that cannot be read are as they were.
        if (m_store.arePinsKnown() && !(item->m_unsaved && item->m_unsaved->isPinned))
            item->m_isPinned = row.isPinned;
        fetched.items.push_back(item);
    }
    for (const auto &[pk, item] : knownByPk)
        fetched.gone.push_back(item);
    m_isAnother = false;
    return fetched;
}

void ClipContext::forgetValues()
{
    m_details.clear();
    m_texts.clear();
    m_shortTexts.clear();
    m_latestPk = 0;
    m_latestText.clear();
}

std::shared_ptr<ClipItem> ClipContext::insert()
{
    return std::make_shared<ClipItem>(*this);
}

void ClipContext::setClip(const std::shared_ptr<ClipItem> &item, const Clip &clip,
                          double createDate)
{
    touch(item);
    item->m_unsaved->clip = clip;
    item->m_unsaved->createDate = createDate;
    item->m_createDate = createDate;
    item->m_hasFilepath = clip.filepath().has_value();
    item->m_hasText = true;
}

void ClipContext::setPasteCount(const std::shared_ptr<ClipItem> &item, qint32 pasteCount)
{
    touch(item);
    item->m_unsaved->pasteCount = pasteCount;
}

void ClipContext::setPinned(const std::shared_ptr<ClipItem> &item, bool isPinned)
{
    touch(item);
    item->m_unsaved->isPinned = isPinned;
    item->m_isPinned = isPinned;
}

void ClipContext::touch(const std::shared_ptr<ClipItem> &item)
{
    if (!item->m_unsaved) {
        item->m_unsaved = std::make_unique<ClipChange>();
        item->m_unsaved->pk = item->m_pk;
    }
    if (std::find(m_changed.begin(), m_changed.end(), item) == m_changed.end())
        m_changed.push_back(item);
}

void ClipContext::keepText(const std::shared_ptr<ClipItem> &item)
{
    const std::optional<QString> text = item->strValue();
    if (!item->m_unsaved)
        item->m_unsaved = std::make_unique<ClipChange>();
    if (!item->m_unsaved->clip)
        item->m_unsaved->clip.emplace().text = text;
}

std::optional<std::vector<ClipChange>> ClipContext::records(const Items &items, qint64 limit)
{
    std::vector<qint64> pks;
    for (const std::shared_ptr<ClipItem> &item : items) {
        if (item->m_pk != 0)
            pks.push_back(item->m_pk);
    }
    std::optional<std::vector<ClipChange>> stored = m_store.readRecords(pks, limit);
    if (!stored)
        return std::nullopt;
    std::vector<ClipChange> records;
    auto next = stored->begin();
    for (const std::shared_ptr<ClipItem> &item : items) {
        const bool isStored =
            item->m_pk != 0 && next != stored->end() && next->formerPk == item->m_pk;
        if (!isStored && !item->unsavedClip())
            continue;
        ClipChange record = isStored ? std::move(*next++) : ClipChange();
        if (const Clip *clip = item->unsavedClip()) {
            record.clip = *clip;
            record.createDate = item->m_createDate;
        }
        if (item->m_unsaved && item->m_unsaved->pasteCount)
            record.pasteCount = item->m_unsaved->pasteCount;
        if (item->m_isPinned)
            record.isPinned = true;
        records.push_back(std::move(record));
    }
    return records;
}

std::shared_ptr<ClipItem> ClipContext::restore(const ClipChange &record)
{
    const std::shared_ptr<ClipItem> item = insert();
    // Not by touch(), which would look through all that were restored before it.
    item->m_unsaved = std::make_unique<ClipChange>(record);
    m_changed.push_back(item);
    item->m_createDate = record.createDate;
    item->m_hasFilepath = record.clip->filepath().has_value();
    item->m_hasText = record.clip->text.has_value();
    item->m_isPinned = record.isPinned.value_or(false);
    return item;
}

ClipChange ClipContext::withdraw(const std::shared_ptr<ClipItem> &item)
{
    letGo(item);
    return std::move(*std::exchange(item->m_unsaved, nullptr));
}

void ClipContext::remove(const std::shared_ptr<ClipItem> &item)
{
    letGo(item);
    if (item->m_pk != 0)
        m_deletedPks.push_back(item->m_pk);
}

void ClipContext::letGo(const std::shared_ptr<ClipItem> &item)
{
    std::erase(m_changed, item);
    item->m_context = nullptr;
    if (item->m_pk == 0)
        return;
    m_details.remove(item->m_pk);
    m_texts.remove(item->m_pk);
    m_shortTexts.remove(item->m_pk);
    if (m_latestPk == item->m_pk) {
        m_latestPk = 0;
        m_latestText.clear();
    }
}

void ClipContext::save()
{
    if (!hasChanges())
        return;
    if (!followStore()) {
        const auto reason = QStringLiteral("its file was taken away");
        qCCritical(lcHistory).noquote() << StoreError::ofSqlite(SQLITE_CANTOPEN, reason).logLine();
        return;
    }
    std::vector<ClipChange> changes;
    changes.reserve(m_changed.size());
    for (const std::shared_ptr<ClipItem> &item : m_changed)
        changes.push_back(*item->m_unsaved);
    if (const std::optional<StoreError> error = m_store.write(changes, m_deletedPks)) {
        qCCritical(lcHistory).noquote() << error->logLine();
        return;
    }
    for (std::size_t i = 0; i < changes.size(); ++i) {
        ClipItem &item = *m_changed[i];
        item.m_pk = changes[i].pk;
        m_details.remove(item.m_pk);
        if (changes[i].clip && changes[i].clip->text)
            rememberText(item.m_pk, *changes[i].clip->text);
        item.m_isPinned = changes[i].isPinned.value_or(item.m_isPinned);
        item.m_unsaved.reset();
    }
    m_changed.clear();
    m_deletedPks.clear();
}

ClipStore::Details ClipContext::details(const ClipItem &item)
{
    if (item.m_pk == 0)
        return {};
    if (const ClipStore::Details *details = m_details.object(item.m_pk))
        return *details;
    ClipStore::Details details = m_store.readDetails(item.m_pk);
    m_details.insert(item.m_pk, new ClipStore::Details(details));
    return details;
}

std::optional<QString> ClipContext::text(const ClipItem &item)
{
    if (item.m_pk == 0)
        return std::nullopt;
    if (item.m_pk == m_latestPk)
        return m_latestText;
    if (const QString *text = m_texts.object(item.m_pk))
        return *text;
    std::optional<QString> text = m_store.readText(item.m_pk);
    if (text)
        rememberText(item.m_pk, *text);
    return text;
}

void ClipContext::rememberText(qint64 pk, const QString &text)
{
    if (m_latestPk != 0 && m_latestPk != pk)
        m_texts.insert(m_latestPk, new QString(m_latestText), costOf(m_latestText));
    m_latestPk = pk;
    m_latestText = text;
}

std::optional<QString> ClipContext::format(const ClipItem &item, const CopyFormat &format)
{
    return item.m_pk == 0 ? std::nullopt : m_store.readText(item.m_pk, format.attribute);
}

std::optional<ClipStore::TextPart> ClipContext::textPart(const ClipItem &item, qint64 begin,
                                                         qint64 limit)
{
    if (item.m_pk != 0)
        return m_store.readTextPart(item.m_pk, begin, limit);
    const std::optional<QString> text = item.strValue();
    if (!text)
        return std::nullopt;
    const QByteArray utf8 = text->toUtf8();
    return ClipStore::TextPart{
        utf8.mid(static_cast<qsizetype>(begin),
                 static_cast<qsizetype>(std::min<qint64>(limit, utf8.size()))),
        utf8.size()};
}

std::optional<QString> ClipContext::shortText(const ClipItem &item)
{
    return readShortText(item).line;
}

QString ClipContext::drawnText(const ClipItem &item)
{
    return readShortText(item).drawn;
}

int ClipContext::copiedFileCount(const ClipItem &item)
{
    return readShortText(item).fileCount;
}

ClipLine ClipContext::readShortText(const ClipItem &item)
{
    if (item.m_pk == 0)
        return makeShortText(item);
    if (const ClipLine *text = m_shortTexts.object(item.m_pk))
        return *text;
    ClipLine text = makeShortText(item);
    m_shortTexts.insert(item.m_pk, new ClipLine(text),
                        costOf(text.line.value_or(QString())) + costOf(text.drawn));
    return text;
}

QString ClipContext::plainLine(const ClipItem &item, qsizetype limit)
{
    if (const std::optional<QString> line = fileLine(item, m_folder))
        return ClipLine::plain(*line, limit);
    if (item.m_pk == 0)
        return ClipLine::plain(item.strValue().value_or(QString()), limit);
    constexpr qint64 kMaxBytesPerCharacter = 4;
    const std::optional<ClipStore::TextPart> start =
        textPart(item, 0, limit * kMaxBytesPerCharacter);
    return start ? ClipLine::plain(ClipLine::decoded(*start), limit) : QString();
}

void ClipContext::forgetShortText(const ClipItem &item)
{
    m_shortTexts.remove(item.m_pk);
}

void ClipContext::forgetLongText()
{
    if (costOf(m_latestText) <= kTextsLimit)
        return;
    m_latestPk = 0;
    m_latestText.clear();
}

ClipLine ClipContext::makeShortText(const ClipItem &item)
{
    if (const std::optional<QString> line = fileLine(item, m_folder))
        return {*line, *line, static_cast<int>(item.copiedFiles().size())};
    if (item.m_pk == 0) {
        const std::optional<QString> text = item.strValue();
        return text ? ClipLine::ofText(QStringView(*text).left(kShortTextSource)) : ClipLine();
    }
    const std::optional<ClipStore::TextPart> start = textPart(item, 0, kShortTextSource);
    closeText();
    return start ? ClipLine::ofText(ClipLine::decoded(*start)) : ClipLine();
}
