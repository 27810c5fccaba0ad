// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "search/FoodSynonyms.h"

#include "search/SynonymTable.h"

#include <QHash>
#include <QList>

#include <algorithm>
#include <utility>

namespace {

std::vector<QByteArray> wordsOf(const QByteArray &text)
{
    const QList<QByteArray> words = text.split(' ');
    return {words.begin(), words.end()};
}

void add(std::vector<FoodSynonym> &list, const QByteArray &said, const QByteArray &meant)
{
    FoodSynonym synonym{wordsOf(said), wordsOf(meant)};
    std::transform(synonym.said.begin(), synonym.said.end(), synonym.said.begin(), writtenOut);
    if (synonym.said != synonym.meant)
        list.push_back(std::move(synonym));
}

// What a food is without, said in each of the ways to say that: "no fat", "fat free", "fatless", "zero fat".
void addLack(std::vector<FoodSynonym> &list, const QByteArray &lacked, const QByteArray &meant)
{
    for (const char *before : {"no ", "zero ", "without ", "non ", "non", "0 ", "no added ", "without added ", "un"})
        add(list, before + lacked, meant);
    for (const char *after : {" free", "free", " less", "less", "ed free"})
        add(list, lacked + after, meant);
    add(list, "no " + lacked + " added", meant);
}

void addLacks(std::vector<FoodSynonym> &list)
{
    addLack(list, "fat", "nonfat|skim|fatfree");
    addLack(list, "fat", "fat free");
    addLack(list, "fat", "lowfat|low fat");
    addLack(list, "sugar", "unsweetened|sugarless|dietetic|aspartame|saccharin|calorie");
    addLack(list, "sugar", "sugar without|free|no");
    addLack(list, "sweetened", "unsweetened");
    addLack(list, "salt", "salt without|no");
    addLack(list, "salt", "unsalted");
    addLack(list, "salted", "salt without|no");
    addLack(list, "sodium", "sodium low|without|reduced");
    addLack(list, "skin", "meat only");
    addLack(list, "skin", "without|skinless skin|flesh");
    addLack(list, "bone", "boneless");
    addLack(list, "bone", "meat only");
    addLack(list, "seed", "seedless");
    addLack(list, "caffeine", "caffeine without");
    addLack(list, "caffeine", "decaffeinated");
    addLack(list, "meat", "meatless|vegetarian|veggie");
    addLack(list, "dairy", "soy|soymilk|nondairy");
    addLack(list, "dressing", "without dressing");
    addLack(list, "calorie", "calorie low|free|reduced|zero");
}

} // namespace

const std::vector<FoodSynonym> &foodSynonyms()
{
    static const std::vector<FoodSynonym> synonyms = [] {
        std::vector<FoodSynonym> list;
        for (const auto &rows : {SynonymTable::rows(), SynonymTable::dishes(), SynonymTable::brands()})
            for (const SynonymTable::Row &row : rows)
                for (const QByteArray &said : QByteArray(row.said).split('|'))
                    add(list, said, row.meant);
        addLacks(list);
        // What is said in more words says more: it is the first to be read.
        std::stable_sort(list.begin(), list.end(),
            [](const FoodSynonym &a, const FoodSynonym &b) { return a.said.size() > b.said.size(); });
        return list;
    }();
    return synonyms;
}

QByteArray writtenOut(const QByteArray &word)
{
    static const QHash<QByteArray, QByteArray> wholewords = [] {
        QHash<QByteArray, QByteArray> all;
        for (const SynonymTable::Row &row : SynonymTable::abbreviations())
            for (const QByteArray &shortform : wordsOf(row.said))
                all.insert(shortform, row.meant);
        return all;
    }();
    return wholewords.value(word, word);
}

const QSet<QByteArray> &foodSynonymWords()
{
    static const QSet<QByteArray> words = [] {
        QSet<QByteArray> all;
        for (const FoodSynonym &synonym : foodSynonyms())
            all.unite(QSet<QByteArray>(synonym.said.begin(), synonym.said.end()));
        return all;
    }();
    return words;
}
