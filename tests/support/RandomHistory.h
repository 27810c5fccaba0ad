// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#pragma once

#include "platform/KeyedArchiver.h"
#include "tests/support/Chance.h"
#include "tests/support/NaiveFood.h"
#include "tests/support/StoredHistory.h"

#include <array>
#include <bit>
#include <cmath>
#include <limits>
#include <map>

inline constexpr std::size_t nutrients = 61;

inline bool sameBits(float left, float right)
{
    return (std::isnan(left) && std::isnan(right)) || std::bit_cast<quint32>(left) == std::bit_cast<quint32>(right);
}

// What was stored, remembered as it was stored and never read from there, and its figures computed day by day in the
// plainest way, with food files read by other code than the program's.
class NaiveHistory final {
public:
    struct Entry {
        Naive::Text name;
        Naive::Text unit;
        float amount = 0.0F;
        std::array<float, nutrients> amounts{};
        std::array<bool, nutrients> known{};
    };
    std::map<QDate, std::vector<Entry>> log; // no date without an entry
    std::map<QDate, std::array<float, nutrients>> sums;
    std::string folder;

    // As opening the day takes them in: a name that is there already is left out.
    void add(QDate date, const Naive::Record &record)
    {
        for (const Entry &entry : log[date]) {
            if (record.name && entry.name == record.name)
                return;
        }
        const Naive::FoodPointer food = Naive::foodOf(record);
        Naive::load(*food, folder, 1);
        Entry entry{record.name, record.unit, record.amount};
        for (std::size_t i = 0; i < nutrients; ++i) {
            const std::string nutrient = NutrientCatalogue::names()[int(i)].toStdString();
            entry.amounts[i] = Naive::amountOf(*food, nutrient);
            entry.known[i] = food->texts.count(nutrient) != 0;
            sums[date][i] = sums[date][i] + entry.amounts[i];
        }
        log[date].push_back(entry);
    }

    [[nodiscard]] bool isLogged(QDate date) const { return log.count(date) != 0; }
    [[nodiscard]] float sum(QDate date, std::size_t nutrient) const { return sums.at(date)[nutrient]; }
    [[nodiscard]] std::vector<QDate> loggedDays(QDate first, QDate last) const
    {
        std::vector<QDate> days;
        for (QDate date = first; date <= last; date = date.addDays(1)) {
            if (isLogged(date))
                days.push_back(date);
        }
        return days;
    }
    // Not a number without days.
    [[nodiscard]] double mean(QDate first, QDate last, std::size_t nutrient) const
    {
        double sumofdays = 0.0;
        const std::vector<QDate> days = loggedDays(first, last);
        for (const QDate date : days)
            sumofdays += double(sum(date, nutrient));
        return sumofdays / double(days.size());
    }
    [[nodiscard]] double knownShare(const std::vector<QDate> &days, std::size_t nutrient) const
    {
        const auto shareBy = [&](const auto &weight) {
            double known = 0.0;
            double all = 0.0;
            for (const QDate date : days) {
                for (const Entry &entry : log.at(date)) {
                    all += weight(entry);
                    known += entry.known[nutrient] ? weight(entry) : 0.0;
                }
            }
            return known / all;
        };
        const double share = shareBy([](const Entry &entry) {
            const float energy = entry.amounts[0];
            return energy > 0.0F && energy <= std::numeric_limits<float>::max() ? double(energy) : 0.0;
        });
        return std::isnan(share) ? shareBy([](const Entry &) { return 1.0; }) : share;
    }
};

// A store of 400 days with everything in it that a store may hold: gaps, empty lists, repeated names, broken records,
// unknown units, zero weights, infinite amounts and NaN, foods without files. What of it counts is in `naive` too.
class RandomHistory final {
public:
    static constexpr int dayCount = 400;
    const QDate begin{2023, 11, 10}; // over two year ends and a leap day
    StoredHistory history;
    NaiveHistory naive;

    explicit RandomHistory(quint32 seed)
    {
        chance.seed(seed);
        naive.folder = QFileInfo(history.files.pathOf(QStringLiteral("F00"))).path().toStdString();
        for (int i = 0; i < Chance::foods; ++i)
            chance.writeFile(history.files, i);
        if (!storeDays())
            qFatal("cannot store the days");
    }

    // The items of a day; those that are entries go to the naive log too.
    QVariantList someDay(QDate date, bool iswild)
    {
        QVariantList items;
        for (int count = chance.percent(10) ? 0 : chance.draw(15); count > 0; --count) {
            const Naive::Record record = someRecord(iswild);
            switch (chance.draw(25)) {
            case 0:
                items.append(QByteArray("no record"));
                break;
            case 1:
                items.append(encoded(record).chopped(20));
                break;
            case 2:
                items.append(encoded(record, "Meal"));
                break;
            case 3:
                items.append(qint64(7));
                break;
            default:
                items.append(encoded(record));
                naive.add(date, record);
            }
        }
        return items;
    }

private:
    // On some days amounts are infinite or no number at all.
    Naive::Record someRecord(bool iswild)
    {
        Naive::Record record = chance.record();
        if (!iswild)
            record.amount = float(chance.draw(4000)) / 7.0F;
        else if (chance.percent(10))
            record.amount
                = chance.percent(50) ? std::numeric_limits<float>::quiet_NaN() : std::numeric_limits<float>::infinity();
        return record;
    }

    static QByteArray encoded(const Naive::Record &record, const char *classname = "Food")
    {
        const auto text = [](const Naive::Text &part) {
            return part ? std::optional<QString>(QString::fromStdString(*part)) : std::nullopt;
        };
        KeyedArchiver archiver(QString::fromLatin1(classname));
        archiver.encodeString(text(record.name), QLatin1String("name"));
        archiver.encodeFloat(record.amount, QLatin1String("amount"));
        archiver.encodeString(text(record.unit), QLatin1String("unit"));
        archiver.encodeInt(record.unitindex, QLatin1String("unitidx"));
        return archiver.archivedData();
    }

    bool storeDays()
    {
        UserDefaults::Transaction save(history.prefs);
        for (int i = 0; i < dayCount; ++i) {
            const QDate date = begin.addDays(i);
            if (chance.percent(20))
                continue;
            if (chance.percent(3))
                history.prefs.setObject(QStringLiteral("no list"), LocalDay::key(date));
            else
                history.store(date, someDay(date, i > 100 && i < 130));
        }
        history.prefs.setObject(
            QVariantList{encoded({"F01", 9.0F, "g", 0})}, LocalDay::key(begin.addDays(10)) + QStringLiteral(".unread"));
        return save.commit();
    }

    Chance chance;
};
