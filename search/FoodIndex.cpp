// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "search/FoodIndex.h"

#include "search/FoodLexicon.h"
#include "search/FoodWords.h"

#include <QHash>
#include <QString>

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

namespace {

using FoodLexicon::Tone;

constexpr quint8 asidebit = 1; // of a part's number: the part stands in brackets

qint16 weightOf(const QByteArray &word, Tone tone, int uses, std::size_t names)
{
    constexpr double unit = 8.0; // eighths of a bit, so that whole numbers do
    constexpr qint16 numberweight = 4;
    switch (tone) {
    case Tone::StopWord:
    case Tone::Neutral:
        return 0;
    case Tone::Plain:
        return FoodIndex::plainWeight;
    case Tone::Processed:
        return FoodIndex::processedWeight;
    case Tone::Ordinary:
    case Tone::StandIn:
        break;
    }
    if (word[0] >= '0' && word[0] <= '9')
        return numberweight;
    return static_cast<qint16>(std::log2(static_cast<double>(names) / uses) * unit);
}

bool isInCapitals(QStringView text)
{
    return text.contains(u'&')
        || std::count_if(text.begin(), text.end(), [](QChar letter) { return letter.isUpper(); }) >= 3;
}

// Follows the commas and brackets of a name: a part is what stands between them, or after a "with" or "in".
class PartCounter {
public:
    explicit PartCounter(const QString &foodname)
        : name(foodname)
    { }

    quint8 partOf(std::string_view word, int start, int length)
    {
        for (; end < start; ++end) {
            const QChar mark = name[end];
            aside = mark == u'(' || (aside && mark != u')');
            if (mark == u',' || mark == u';' || mark == u'(' || mark == u')')
                ++part;
        }
        end = start + length;
        if (word == "with" || word == "in")
            ++part;
        return static_cast<quint8>(part * 2 + (aside ? asidebit : 0));
    }

private:
    const QString &name;
    int end = 0;
    int part = 0;
    bool aside = false;
};

} // namespace

struct FoodIndex::Part {
    std::size_t first = 0; // of the name's words
    std::size_t last = 0;
    bool aside = false;
    bool state = true;
};

FoodIndex::FoodIndex(const QStringList &foodnames)
{
    std::vector<quint8> parts;
    takeApart(foodnames, parts);
    for (Name &name : indexed)
        giveParts(name, parts.data() + name.first);
}

// Fills everything but the places; answers the part that each word of the names belongs to.
void FoodIndex::takeApart(const QStringList &foodnames, std::vector<quint8> &parts)
{
    constexpr std::size_t wordsofname = 11;
    const auto count = static_cast<std::size_t>(foodnames.size());
    QHash<QByteArray, quint16> numbers;
    std::vector<int> uses;
    std::vector<int> capitals;
    indexed.reserve(count);
    namewords.reserve(count * wordsofname);
    parts.reserve(count * wordsofname);
    for (const QString &foodname : foodnames) {
        Name name;
        name.first = static_cast<quint32>(namewords.size());
        PartCounter counter(foodname);
        FoodWords::eachToken(foodname, [&](std::string_view text, int start, int length) {
            // Looked for in place: most words were there before.
            auto number = numbers.constFind(QByteArray::fromRawData(text.data(), static_cast<qsizetype>(text.size())));
            if (number == numbers.cend()) {
                Q_ASSERT(words.size() < std::numeric_limits<quint16>::max());
                const QByteArray word(text.data(), static_cast<qsizetype>(text.size()));
                number = numbers.insert(word, static_cast<quint16>(words.size()));
                words.emplace_back().text = word;
                uses.push_back(0);
                capitals.push_back(0);
            }
            ++uses[*number];
            capitals[*number] += isInCapitals(QStringView(foodname).mid(start, length)) ? 1 : 0;
            parts.push_back(counter.partOf(text, start, length));
            namewords.push_back({*number, static_cast<quint8>(start), static_cast<quint8>(length)});
            ++name.count;
        });
        indexed.push_back(name);
    }
    sortVocabulary(uses, capitals);
}

void FoodIndex::sortVocabulary(const std::vector<int> &uses, const std::vector<int> &capitals)
{
    std::vector<quint16> order(words.size());
    for (std::size_t i = 0; i < order.size(); ++i)
        order[i] = static_cast<quint16>(i);
    std::sort(order.begin(), order.end(), [this](quint16 a, quint16 b) { return words[a].text < words[b].text; });

    std::vector<VocabularyWord> sorted(words.size());
    std::vector<quint16> place(words.size());
    for (std::size_t i = 0; i < order.size(); ++i) {
        const quint16 old = order[i];
        place[old] = static_cast<quint16>(i);
        VocabularyWord &word = sorted[i];
        word.text = words[old].text;
        const Tone tone = FoodLexicon::tone(word.text);
        word.weight = weightOf(word.text, tone, uses[old], indexed.size());
        word.brand = capitals[old] * 2 > uses[old] && !FoodLexicon::isAbbreviation(word.text);
        word.standIn = tone == Tone::StandIn;
        word.processed = tone == Tone::Processed;
        word.stopWord = tone == Tone::StopWord;
        word.raw = word.text == "raw";
        word.cooked = word.text == "cooked";
        word.heat = word.text == "heat";
        word.either = word.text == "or";
        word.dry = FoodLexicon::isDry(word.text);
        word.madeUp = FoodLexicon::isMadeUp(word.text);
        word.forFew = FoodLexicon::isForFew(word.text);
        word.state = FoodLexicon::tellsState(word.text) || word.brand;
    }
    words = std::move(sorted);
    for (NameWord &word : namewords)
        word.word = place[word.word];
}

void FoodIndex::giveParts(Name &name, const quint8 *partofword)
{
    const NameWord *own = wordsOf(name);
    name.flesh = name.count > 0 && FoodLexicon::isFlesh(words[own[0].word].text);
    std::vector<Part> parts;
    for (std::size_t i = 0; i < name.count; ++i) {
        const VocabularyWord &word = words[own[i].word];
        name.ofBrand = name.ofBrand || word.brand || word.standIn;
        name.forFew = name.forFew || word.forFew;
        if (i == 0 || partofword[i] != partofword[i - 1])
            parts.push_back({i, i, (partofword[i] & asidebit) != 0});
        parts.back().last = i;
        parts.back().state = parts.back().state && word.state;
    }

    auto next = parts.cbegin();
    const auto giveStates = [&] {
        while (next != parts.cend() && next + 1 != parts.cend() && next->state && !next->aside)
            give(name, *next++, Place::Later);
    };
    if (parts.size() > 1 && isShelf(name, *next)) {
        give(name, *next++, Place::Shelf);
        giveStates();
    }
    if (next != parts.cend())
        give(name, *next++, Place::Head);
    giveStates();
    if (next != parts.cend() && next->aside)
        give(name, *next++, Place::Alias);
    bool kind = false;
    for (; next != parts.cend(); ++next) {
        const bool iskind = !kind && !next->aside && !next->state;
        give(name, *next, iskind ? Place::Kind : next->aside ? Place::Aside : Place::Later);
        kind = kind || iskind;
    }
    markDry(name);
}

void FoodIndex::give(Name &name, const Part &part, Place place)
{
    NameWord *own = namewords.data() + name.first;
    NameWord *noun = nullptr;
    for (std::size_t i = part.first; i <= part.last; ++i) {
        own[i].place = place;
        if (words[own[i].word].counts()) {
            ++name.size[static_cast<std::size_t>(place)];
            noun = own + i;
        }
    }
    if (noun != nullptr)
        noun->noun = true;
    const QByteArray &first = words[own[part.first].word].text;
    const bool fatalone
        = first == "separable" && part.last == part.first + 1 && words[own[part.last].word].text == "fat";
    own[part.first].uneaten = place != Place::Aside && (first == "skin" || fatalone);
}

void FoodIndex::markDry(const Name &name)
{
    NameWord *own = namewords.data() + name.first;
    NameWord *end = own + name.count;
    const auto isMadeUp = [this](const NameWord &word) { return words[word.word].madeUp; };
    if (std::any_of(own, end, isMadeUp))
        return;
    NameWord *dry = std::find_if(own, end, [this](const NameWord &word) { return words[word.word].dry; });
    if (dry != end && (dry + 1 == end || !words[dry[1].word].either))
        dry->uneaten = true;
}

bool FoodIndex::isShelf(const Name &name, const Part &part) const
{
    const NameWord *own = wordsOf(name);
    QByteArray text;
    for (std::size_t i = part.first; i <= part.last; ++i) {
        const VocabularyWord &word = words[own[i].word];
        if (word.brand)
            return true;
        text += (i == part.first ? "" : " ") + word.text;
    }
    return FoodLexicon::isShelf(text, words[own[part.last + 1].word].text);
}

std::size_t FoodIndex::lowerBound(const QByteArray &text) const
{
    const auto found = std::lower_bound(words.begin(), words.end(), text,
        [](const VocabularyWord &word, const QByteArray &wanted) { return word.text < wanted; });
    return static_cast<std::size_t>(found - words.begin());
}

int FoodIndex::find(const QByteArray &text) const
{
    const std::size_t at = lowerBound(text);
    return at < words.size() && words[at].text == text ? static_cast<int>(at) : -1;
}
