// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>
#include <QStringView>

#include <optional>
#include <vector>

// Numbers and the words of measures, as people type them and as the titles of units hold them: "1 1/2 cups", "330ml",
// "x 0.75 cup (1 NLEA serving)". A number that belongs to a food ("2%", "5TH", "80/20", "7-grain") is a word here.
namespace MeasureText {

struct Token {
    QByteArray word; // lower case, letters and digits; empty for a number
    double number = 0;
    qsizetype start = 0; // where it stands in the text
    qsizetype end = 0;

    [[nodiscard]] bool isNumber() const { return word.isEmpty(); }
};

[[nodiscard]] std::vector<Token> tokenize(QStringView text);

// A number told in words: "half", "dozen". Nothing for any other word.
[[nodiscard]] std::optional<double> numberCalled(const QByteArray &word);

// The words after a number that make it a property of the food: "80 proof", "2 percent".
[[nodiscard]] bool makesNumberOfFood(const QByteArray &word);

struct Unit {
    enum class Kind {
        Mass, // `size` is grams
        Volume, // `size` is millilitres
        Measure // "slice", "large": each food has its own
    };

    Kind kind = Kind::Measure;
    double size = 0;
    QByteArray name; // of a measure: its singular, "slice"

    bool operator==(const Unit &) const = default;
};

struct UnitWords {
    Unit unit;
    std::size_t count = 0; // how many tokens say it
};

// The unit that the tokens from `first` on say, in any of its spellings. The customary ones are the catalogue's, of the
// United States: a cup is 236.6 ml.
[[nodiscard]] std::optional<UnitWords> unitAt(const std::vector<Token> &tokens, std::size_t first);

} // namespace MeasureText
