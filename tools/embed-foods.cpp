// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

// embed-foods <foods.tsv> <output>: the build step that makes the food catalogue's names a part of the program. Writes
// a piece of C++ with `names`, all names one after the other, and `lengths`. Only what would spoil that text is
// refused here; the importer and the tests hold the names to the catalogue's rules.

#include <algorithm>
#include <fstream>
#include <iostream>
#include <string>
#include <vector>

namespace {

bool embeddable(const std::string &name)
{
    return !name.empty() && name.size() < 256
        && std::ranges::all_of(name, [](char c) { return c >= ' ' && c <= '~' && c != '"' && c != '\\' && c != '?'; });
}

} // namespace

int main(int argc, char *argv[])
{
    if (argc != 3) {
        std::cerr << "usage: embed-foods <foods.tsv> <output>\n";
        return 2;
    }
    std::ifstream in(argv[1]);
    std::vector<std::string> names;
    for (std::string line; std::getline(in, line);) {
        const std::size_t tab = line.find('\t');
        names.push_back(tab == std::string::npos ? std::string() : line.substr(tab + 1));
        if (!embeddable(names.back())) {
            std::cerr << argv[1] << ':' << names.size() << ": no number, tab and plain name\n";
            return 1;
        }
    }
    if (in.bad() || names.empty()) {
        std::cerr << argv[1] << ": cannot be read\n";
        return 1;
    }

    std::ofstream out(argv[2], std::ios::binary);
    out << "// Made by embed-foods from foods.tsv; changes are made there.\n"
           "constexpr char16_t names[] =\n";
    for (const std::string &name : names)
        out << "    u\"" << name << "\"\n";
    out << "    ;\n"
           "constexpr unsigned char lengths[] = {";
    for (std::size_t i = 0; i < names.size(); ++i)
        out << (i % 24 == 0 ? "\n    " : " ") << names[i].size() << ',';
    out << "\n};\n";
    out.close();
    if (!out) {
        std::cerr << argv[2] << ": cannot be written\n";
        return 1;
    }
    return 0;
}
