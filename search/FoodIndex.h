// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>
#include <QStringList>

#include <array>
#include <vector>

// The names of the catalogue, cut into tokens once so that a search need not: which words they are made of, and what
// part (field) of the name each stands in. A name begins with what the food is ("Apples") or with a shelf that it
// stands on ("Nuts", "Fast foods"), and goes on with its kind and with how it comes, from the important to the fine
// print. Telling the parts apart is what lets "almond" find "Nuts, almonds" before almond paste. Words are numbers into
// one vocabulary of some 2,800, so that a query is compared with each word once and with its 64,000 occurrences not at
// all. Building it takes about 6 ms: it is done when the search is first needed.
class FoodIndex {
public:
    enum class Place : quint8 {
        Shelf, // "Nuts" in "Nuts, almonds": a group of foods, not the food
        Head, // "almonds"; "Apples" in "Apples, raw"; "Peanut butter" in "Peanut butter, smooth style"
        Alias, // another name for the head, in brackets: "garbanzo beans", "prunes"
        Kind, // "cheddar" in "Cheese, cheddar"
        Aside, // in brackets elsewhere
        Later // everything else
    };
    static constexpr std::size_t placeCount = 6;

    // An occurrence of a word in a name.
    struct NameWord {
        quint16 word; // in the vocabulary
        quint8 start; // in letters of the name
        quint8 length;
        Place place = Place::Later;
        bool noun = false; // the last word of its part: "butter" in "Peanut butter"
        bool uneaten = false; // what is not eaten so: the skin or the fat alone, a mix to be made up
    };

    struct Name {
        quint32 first = 0; // of its words
        quint8 count = 0;
        bool ofBrand = false; // or a stand-in for the food
        bool forFew = false;
        bool flesh = false;
        std::array<quint8, placeCount> size{}; // how many words that count each place has
    };

    struct VocabularyWord {
        QByteArray text;
        // What the word adds to the weight of a name when nobody asked for it: its inverse document frequency, log2 of
        // names by uses (a second use in one name counts too), times eight; or a fixed weight for a word with a tone of
        // its own. A light name is an everyday one: it says little more than was asked, and in common words.
        qint16 weight = 0;
        bool brand = false; // printed in capitals wherever it stands
        bool standIn = false;
        bool processed = false;
        bool forFew = false;
        bool state = false;
        bool stopWord = false;
        bool raw = false;
        bool cooked = false;
        bool heat = false;
        bool either = false; // "or"
        bool dry = false; // to be made up
        bool madeUp = false;

        [[nodiscard]] bool counts() const { return !stopWord && !brand; }
    };

    static constexpr int plainWeight = -24;
    static constexpr int processedWeight = 80;

    explicit FoodIndex(const QStringList &foodnames);

    [[nodiscard]] const std::vector<Name> &names() const { return indexed; }
    // As many words as the name counts.
    [[nodiscard]] const NameWord *wordsOf(const Name &name) const { return namewords.data() + name.first; }
    // In alphabetical order.
    [[nodiscard]] const std::vector<VocabularyWord> &vocabulary() const { return words; }
    // Where the first word stands that does not come before this text.
    [[nodiscard]] std::size_t lowerBound(const QByteArray &text) const;
    // Where the word stands in the vocabulary, or -1.
    [[nodiscard]] int find(const QByteArray &text) const;

private:
    struct Part;

    void takeApart(const QStringList &foodnames, std::vector<quint8> &parts);
    void sortVocabulary(const std::vector<int> &uses, const std::vector<int> &capitals);
    void giveParts(Name &name, const quint8 *partofword);
    void give(Name &name, const Part &part, Place place);
    void markDry(const Name &name);
    [[nodiscard]] bool isShelf(const Name &name, const Part &part) const;

    std::vector<Name> indexed;
    std::vector<NameWord> namewords;
    std::vector<VocabularyWord> words;
};
