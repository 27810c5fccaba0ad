// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "search/FoodQuery.h"

#include "search/FoodLexicon.h"
#include "search/FoodSynonyms.h"
#include "search/FoodWords.h"

#include <QSet>

#include <algorithm>

namespace {

using FoodQuery::Match;
using FoodQuery::Reading;
using FoodQuery::Term;
using Words = std::vector<QByteArray>;

constexpr std::size_t mostreadings = 8;

struct DraftWord {
    QByteArray text;
    bool typed = true; // or somebody else's word for it, which is meant as a whole and taken for nothing else
};

struct Draft {
    std::vector<DraftWord> words;
    bool bySynonym = false;
};

int allowedDistance(const QByteArray &word)
{
    return word.size() >= 8 ? 2 : word.size() >= 4 ? 1 : 0;
}

bool isSame(const QByteArray &a, const QByteArray &b)
{
    if (a == b)
        return true;
    // Two spellings of one word begin alike: most pairs need no more than this.
    if (a[0] != b[0] || std::abs(a.size() - b.size()) > 3)
        return false;
    const Words others = FoodWords::inflections(a);
    return std::find(others.begin(), others.end(), b) != others.end();
}

// What is said in the plural has no singular: "greens" are leaves, and green is a colour.
bool isSaidAs(const QByteArray &typed, const QByteArray &said)
{
    return isSame(typed, said) && !(said.size() == typed.size() + 1 && said.endsWith('s'));
}

bool matchAs(Term &term, int word, Match match)
{
    if (word < 0)
        return false;
    term.matches[static_cast<std::size_t>(word)] = match;
    term.found = true;
    return true;
}

// Its other inflections too; and, as "tomatos" is nobody's plural, the right plural of its singular.
void matchInflectionsAs(Term &term, const QByteArray &text, Match match, const FoodIndex &index)
{
    for (const QByteArray &other : FoodWords::inflections(text)) {
        if (!matchAs(term, index.find(other), match))
            continue;
        for (const QByteArray &another : FoodWords::inflections(other))
            matchAs(term, index.find(another), match);
    }
}

void matchWholeAs(Term &term, const QByteArray &text, const FoodIndex &index)
{
    matchInflectionsAs(term, text, Match::Whole, index);
    matchAs(term, index.find(text), Match::Whole);
}

Term termFor(const QByteArray &text, bool prefixes, const FoodIndex &index)
{
    const auto &vocabulary = index.vocabulary();
    Term term{text, std::vector<Match>(vocabulary.size(), Match::None)};
    if (prefixes) {
        for (std::size_t at = index.lowerBound(text); at < vocabulary.size(); ++at) {
            if (!vocabulary[at].text.startsWith(text))
                break;
            matchAs(term, static_cast<int>(at), Match::Prefix);
        }
    }
    if (text.contains('|')) {
        for (const QByteArray &each : text.split('|'))
            matchWholeAs(term, each, index);
    } else {
        matchWholeAs(term, text, index);
    }
    return term;
}

// Corrects the spelling of a term that is in no name: it matches the words at the least edit distance, whole ones
// before prefixes.
void correctSpelling(Term &term, const FoodIndex &index)
{
    constexpr qsizetype shortestprefix = 6; // fewer letters, one of them wrong, begin too much
    const auto &vocabulary = index.vocabulary();
    term.corrected = true;
    for (const bool prefix : {false, true}) {
        const Match match = prefix ? Match::Prefix : Match::Whole;
        if (prefix && term.text.size() < shortestprefix)
            return;
        for (int allowed = 1; allowed <= allowedDistance(term.text); ++allowed) {
            for (std::size_t at = 0; at < vocabulary.size(); ++at) {
                if (FoodWords::editDistance(term.text, vocabulary[at].text, allowed, prefix) > allowed)
                    continue;
                matchAs(term, static_cast<int>(at), match);
                matchInflectionsAs(term, vocabulary[at].text, match, index);
            }
            if (term.found)
                return;
        }
    }
}

class Reader {
public:
    Reader(const FoodIndex &foodindex, bool unfound)
        : index(foodindex)
        , partial(unfound)
    { }

    std::vector<Reading> read(const Words &typed)
    {
        Draft first;
        for (const QByteArray &word : typed)
            first.words.push_back({spelledAsSaid(writtenOut(word))});
        drafts.push_back(first);
        addWithoutStopWords();
        for (std::size_t at = 0; at < drafts.size(); ++at) {
            addSynonyms(at);
            addJoined(at);
            addSplit(at);
        }
        std::vector<Reading> answer;
        for (const Draft &draft : drafts) {
            Reading reading;
            reading.bySynonym = draft.bySynonym;
            if (addTerms(reading, draft))
                answer.push_back(std::move(reading));
        }
        return answer;
    }

private:
    // A token that is in no name may be a prefix, or a misspelling, of one that the table of synonyms knows.
    QByteArray spelledAsSaid(const QByteArray &word) const
    {
        if (word.size() < 3 || foodSynonymWords().contains(word) || FoodLexicon::isUnknownFood(word)
            || termFor(word, true, index).found)
            return word;
        const int limit = allowedDistance(word);
        QByteArray closest = word;
        for (const FoodSynonym &synonym : foodSynonyms()) {
            if (synonym.said.size() != 1)
                continue;
            const QByteArray &said = synonym.said.front();
            if (said.startsWith(word) || isSame(word, said))
                return said;
            if (FoodWords::editDistance(word, said, limit, false) <= limit)
                closest = said;
        }
        const auto &vocabulary = index.vocabulary();
        const bool ownword = std::any_of(vocabulary.begin(), vocabulary.end(),
            [&](const auto &other) { return FoodWords::editDistance(word, other.text, limit, false) <= limit; });
        return ownword ? word : closest;
    }

    // Puts `meant` in the place of `count` words at `first` of a draft, as a draft of its own.
    void add(
        const Draft &draft, std::size_t first, std::size_t count, const std::vector<DraftWord> &meant, bool bySynonym)
    {
        if (drafts.size() >= mostreadings)
            return;
        Draft changed = draft;
        const auto at = changed.words.begin() + static_cast<std::ptrdiff_t>(first);
        for (auto word = at; word != at + static_cast<std::ptrdiff_t>(count); ++word)
            rewritten.insert(word->text);
        changed.words.insert(
            changed.words.erase(at, at + static_cast<std::ptrdiff_t>(count)), meant.begin(), meant.end());
        changed.bySynonym = changed.bySynonym || bySynonym;
        drafts.push_back(changed);
    }

    // "chicken and rice" need not have the "and". A last word may go on.
    void addWithoutStopWords()
    {
        Draft changed = drafts.front();
        const auto isIdle
            = [&](const DraftWord &word) { return &word != &changed.words.back() && FoodLexicon::isIdle(word.text); };
        if (std::erase_if(changed.words, isIdle) == 0 || changed.words.size() < 2)
            return;
        changed.bySynonym = true;
        drafts.push_back(changed);
    }

    // The last word of several may still be on its way, and two alone may stand the other way round: "wings buffalo".
    void addSynonyms(std::size_t number)
    {
        constexpr qsizetype shortest = 3;
        const Draft draft = drafts[number];
        const auto isSaid = [&](std::size_t at, const QByteArray &said) {
            return draft.words[at].typed && isSaidAs(draft.words[at].text, said);
        };
        for (const FoodSynonym &synonym : foodSynonyms()) {
            const std::size_t count = synonym.said.size();
            const bool turned
                = count == 2 && draft.words.size() == 2 && isSaid(0, synonym.said[1]) && isSaid(1, synonym.said[0]);
            for (std::size_t first = 0; first + count <= draft.words.size(); ++first) {
                bool same = true;
                for (std::size_t i = 0; i < count && same; ++i) {
                    const DraftWord &word = draft.words[first + i];
                    const bool last = i > 0 && first + i + 1 == draft.words.size();
                    same = isSaid(first + i, synonym.said[i])
                        || (last && word.typed && word.text.size() >= shortest
                            && synonym.said[i].startsWith(word.text));
                }
                if (!same && !turned)
                    continue;
                std::vector<DraftWord> meant;
                for (const QByteArray &word : synonym.meant)
                    meant.push_back({word, false});
                add(draft, first, count, meant, true);
            }
        }
    }

    // Two words that some name writes as one: "soy milk".
    void addJoined(std::size_t number)
    {
        const Draft draft = drafts[number];
        for (std::size_t first = 0; first + 1 < draft.words.size(); ++first) {
            const DraftWord &one = draft.words[first];
            const DraftWord &two = draft.words[first + 1];
            const QByteArray joined = one.text + two.text;
            if (one.typed && two.typed && termFor(joined, false, index).found)
                add(draft, first, 2, {{joined, false}}, false);
        }
    }

    // One word that some name writes as two: "cornflakes".
    void addSplit(std::size_t number)
    {
        constexpr qsizetype shortest = 3;
        const Draft draft = drafts[number];
        for (std::size_t at = 0; at < draft.words.size(); ++at) {
            const DraftWord &word = draft.words[at];
            if (!word.typed || word.text.size() < 2 * shortest || termFor(word.text, true, index).found)
                continue;
            for (qsizetype cut = shortest; cut <= word.text.size() - shortest; ++cut) {
                const QByteArray one = word.text.left(cut);
                const QByteArray two = word.text.mid(cut);
                if (termFor(one, false, index).found && termFor(two, false, index).found)
                    add(draft, at, 1, {{one, false}, {two, false}}, false);
            }
        }
    }

    // Answers whether the draft can find anything. A typed word that is in no name has its spelling corrected, unless
    // another draft says what it means.
    bool addTerms(Reading &reading, const Draft &draft) const
    {
        for (const DraftWord &word : draft.words) {
            // Two letters begin too much to be all that a name matches.
            const bool prefixes = word.typed && (!partial || word.text.size() > 2);
            Term term = termFor(word.text, prefixes, index);
            if (!term.found && word.typed && !rewritten.contains(word.text) && !FoodLexicon::isUnknownFood(word.text))
                correctSpelling(term, index);
            if (!term.found && (!partial || rewritten.contains(word.text)))
                return false;
            reading.terms.push_back(std::move(term));
        }
        const auto noun = std::find_if(reading.terms.rbegin(), reading.terms.rend(), [](const Term &term) {
            return term.found && !term.corrected && !FoodLexicon::isCut(term.text)
                && !(term.text[0] >= '0' && term.text[0] <= '9');
        });
        if (noun != reading.terms.rend())
            noun->noun = true;
        for (Term &term : reading.terms)
            term.noun = term.noun || FoodLexicon::isFlesh(term.text);
        if (std::none_of(reading.terms.begin(), reading.terms.end(), [](const Term &term) { return term.found; }))
            return false;
        return true;
    }

    const FoodIndex &index;
    bool partial;
    std::vector<Draft> drafts;
    QSet<QByteArray> rewritten;
};

} // namespace

std::vector<FoodQuery::Reading> FoodQuery::readings(const Words &typed, const FoodIndex &index)
{
    return Reader(index, false).read(typed);
}

std::vector<FoodQuery::Reading> FoodQuery::partialReadings(const Words &typed, const FoodIndex &index)
{
    return Reader(index, true).read(typed);
}
