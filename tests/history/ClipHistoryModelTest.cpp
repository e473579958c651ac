#include "history/HistoryRig.h"

#include <QRegularExpression>

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

namespace {

using namespace Qt::StringLiterals;

/// The history as it would be kept if neither time nor memory counted: everything in one table
/// that is read anew, sorted and matched at each step.
class NaiveHistory
{
public:
    struct Clip
    {
        int record;
        QString text;
        QString filepath; ///< Empty for a text.
        qint64 date;      ///< Microseconds.
        bool isPinned = false;
    };

    void load()
    {
        shown = newestFirst();
        last = shown.empty() ? std::nullopt : std::optional(shown.front().text);
    }

    void add(const QString &text, const QString &filepath, qint64 now, int maxItems)
    {
        if (text.isEmpty() || last == text)
            return;
        std::vector<Clip> clips = newestFirst();
        const auto same = std::find_if(clips.begin(), clips.end(),
                                       [&](const Clip &clip) { return clip.text == text; });
        const qint64 date = clips.empty() ? now : std::max(now, clips.front().date + 1);
        const bool isNew = same == clips.end();
        const Clip added{isNew ? ++m_records : same->record, text, filepath, date,
                         !isNew && same->isPinned};
        remove(added.record);
        m_table.push_back(added);
        if (static_cast<int>(shown.size()) >= maxItems)
            removeOldest(added.record);
        load();
    }

    void search(const QString &term)
    {
        const bool isFileSearch = term.toLower().startsWith(u"file:"_s);
        QString pattern = isFileSearch ? term.mid(5) : term;
        if (isFileSearch && pattern.startsWith(u' '))
            pattern.remove(0, 1);
        pattern = QRegularExpression::escape(pattern);
        pattern.replace(u"\\*"_s, u".*"_s);
        pattern.replace(u"\\?"_s, u"."_s);
        const QRegularExpression expression(pattern,
                                            QRegularExpression::CaseInsensitiveOption |
                                                QRegularExpression::UseUnicodePropertiesOption |
                                                QRegularExpression::DotMatchesEverythingOption);
        shown.clear();
        for (const Clip &clip : newestFirst()) {
            if ((!isFileSearch || !clip.filepath.isEmpty()) &&
                expression.match(clip.text).hasMatch())
                shown.push_back(clip);
        }
    }

    void deleteRow(std::size_t row)
    {
        remove(shown[row].record);
        shown.erase(shown.begin() + static_cast<std::ptrdiff_t>(row));
    }

    void shrink(std::size_t maxItems)
    {
        for (std::size_t i = maxItems; i < shown.size(); ++i)
            if (!shown[i].isPinned || maxItems == 0)
                remove(shown[i].record);
        load();
    }

    void togglePin(std::size_t row)
    {
        const bool isPinned = shown[row].isPinned = !shown[row].isPinned;
        for (Clip &clip : m_table)
            if (clip.record == shown[row].record)
                clip.isPinned = isPinned;
    }

    std::vector<Clip> shown;
    std::optional<QString> last;

private:
    std::vector<Clip> newestFirst() const
    {
        std::vector<Clip> clips = m_table;
        std::sort(clips.begin(), clips.end(), [](const Clip &one, const Clip &other) {
            return std::pair(one.date, one.record) > std::pair(other.date, other.record);
        });
        return clips;
    }
    void removeOldest(int added)
    {
        const std::vector<Clip> clips = newestFirst();
        const auto oldest = std::find_if(clips.rbegin(), clips.rend(),
                                         [](const Clip &clip) { return !clip.isPinned; });
        if (oldest != clips.rend() && oldest->record != added)
            remove(oldest->record);
    }
    void remove(int record)
    {
        std::erase_if(m_table, [&](const Clip &clip) { return clip.record == record; });
    }

    std::vector<Clip> m_table;
    int m_records = 0;
};

class RandomSteps
{
public:
    RandomSteps(const QString &folder, unsigned seed)
        : m_folder(folder), m_random(seed), m_rig(std::make_unique<HistoryRig>(folder))
    {
    }

    void step()
    {
        const int kind = pick(24);
        if (kind < 10)
            add();
        else if (kind < 14)
            search();
        else if (kind < 17)
            deleteRow();
        else if (kind == 17)
            shrink();
        else if (kind == 18)
            load();
        else if (kind < 21)
            togglePin();
        else if (kind < 23)
            deleteAndBringBack();
        else
            restart();
        compare();
    }

private:
    int pick(int below) { return static_cast<int>(m_random() % static_cast<unsigned>(below)); }

    QString text()
    {
        static const QStringList kWords{u"Mail"_s, u"mAIL x"_s, u"é"_s,
                                        u"É\nb"_s, u"*"_s,      QString()};
        return kWords[pick(6)] + QString::number(pick(4)) + kWords[pick(6)];
    }

    void add()
    {
        const QString copy = text();
        const QString filepath = pick(3) == 0 ? u"/tmp/"_s + copy : QString();
        m_rig->settings.maxItems = 4 + pick(12);
        // Now and then the clock is set back, or stands still.
        static const int kSteps[] = {-3'600'000, -30'000, 0, 3'600'000};
        m_rig->platform.clock.advance(
            std::chrono::milliseconds(pick(8) == 0 ? kSteps[pick(4)] : 5'001));
        m_rig->history.addToClipList(
            {copy, {}, u"Editor"_s, filepath.isEmpty() ? std::nullopt : std::optional(filepath)});
        m_naive.add(copy, filepath, m_rig->platform.clock.now().toMSecsSinceEpoch() * 1000,
                    static_cast<int>(m_rig->settings.maxItems));
    }

    void search()
    {
        static const QStringList kTerms{QString(), u"mail"_s, u"FILE: "_s, u"file:é"_s,
                                        u"l*É"_s,  u"?b"_s,   u"x2"_s};
        const QString term = kTerms[pick(static_cast<int>(kTerms.size()))];
        m_rig->history.filterClipItemArr(term);
        m_naive.search(term);
    }

    void deleteRow()
    {
        if (m_naive.shown.empty())
            return;
        const auto row = static_cast<std::size_t>(pick(static_cast<int>(m_naive.shown.size())));
        m_rig->history.deleteItem(m_rig->at(row));
        m_naive.deleteRow(row);
    }

    void togglePin()
    {
        if (m_naive.shown.empty())
            return;
        const auto row = static_cast<std::size_t>(pick(static_cast<int>(m_naive.shown.size())));
        m_rig->history.setPinned({m_rig->at(row)}, !m_rig->at(row)->isPinned());
        m_naive.togglePin(row);
    }

    /// As if nothing had been.
    void deleteAndBringBack()
    {
        m_rig->history.deletedClips().clear();
        const bool isAll = pick(2) == 0;
        if (isAll) {
            m_rig->history.clearAll();
        } else {
            ClipHistory::Items some = m_rig->history.clipItemArr();
            std::erase_if(some, [this](const auto &) { return pick(2) == 0; });
            m_rig->history.deleteItems(some);
        }
        if (isAll || m_rig->history.deletedClips().count() > 0)
            m_naive.load();
        m_rig->history.bringBack();
    }

    void shrink()
    {
        const int maxItems = pick(12);
        if (maxItems == 0)
            m_rig->history.clearAll();
        else
            m_rig->history.maxItemsModified(maxItems);
        if (maxItems == 0)
            m_naive.load();
        m_naive.shrink(static_cast<std::size_t>(maxItems));
    }

    void load()
    {
        m_rig->history.loadClipItems();
        m_naive.load();
    }

    void restart()
    {
        const QDateTime now = m_rig->platform.clock.now();
        m_rig.reset();
        m_rig = std::make_unique<HistoryRig>(m_folder);
        m_rig->platform.clock.advance(
            std::chrono::milliseconds(m_rig->platform.clock.now().msecsTo(now)));
        m_naive.load();
    }

    void compare()
    {
        const ClipHistory::Items &shown = m_rig->history.clipItemArr();
        ASSERT_EQ(shown.size(), m_naive.shown.size());
        for (std::size_t row = 0; row < shown.size(); ++row) {
            const NaiveHistory::Clip &expected = m_naive.shown[row];
            ASSERT_EQ(shown[row]->strValue(), expected.text) << "row " << row;
            ASSERT_EQ(shown[row]->filepath().value_or(QString()), expected.filepath)
                << "row " << row;
            ASSERT_EQ(shown[row]->isPinned(), expected.isPinned) << "row " << row;
            ASSERT_EQ(shown[row]->createDate()->toMSecsSinceEpoch(), (expected.date + 500) / 1000);
        }
        const auto &last = m_rig->history.lastClipItem();
        ASSERT_EQ(last ? last->strValue() : std::nullopt, m_naive.last);
    }

    QString m_folder;
    std::mt19937 m_random;
    std::unique_ptr<HistoryRig> m_rig;
    NaiveHistory m_naive;
};

TEST(ClipHistoryModel, anySequenceOfStepsShowsWhatTheNaiveHistoryShows)
{
    const StoreFolder folder;
    RandomSteps steps(folder.path(), 20260102);
    for (int i = 0; i < 1500 && !testing::Test::HasFatalFailure(); ++i) {
        SCOPED_TRACE(i);
        steps.step();
    }
}

} // namespace
