// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "fuzz/Fuzzing.h"
#include "platform/PropertyList.h"

#include <algorithm>

namespace {

using PropertyList::Document;
using PropertyList::Kind;
using PropertyList::Reference;

// Asks every question about an object; most answers are "nothing", none may go astray.
void ask(const Document &document, Reference object)
{
    const Kind kind = document.kind(object);
    Fuzzing::require(document.boolean(object).has_value() == (kind == Kind::Boolean), "a boolean is one");
    Fuzzing::require(document.integer(object).has_value() == (kind == Kind::Integer), "an integer is one");
    Fuzzing::require(document.data(object).has_value() == (kind == Kind::Data), "data is data");
    // A string whose bytes are no text is of its kind and gives nothing.
    Fuzzing::require(kind == Kind::String || !document.string(object), "only a string gives one");
    (void)document.floatReal(object);
    (void)document.doubleReal(object);
    (void)document.date(object);
    (void)document.uid(object);
    const quint64 count = std::min<quint64>(document.count(object), 64);
    for (quint64 i = 0; i < count; ++i) {
        if (kind == Kind::Array)
            (void)document.kind(document.element(object, i));
        if (kind == Kind::Dictionary) {
            (void)document.kind(document.key(object, i));
            (void)document.kind(document.value(object, i));
        }
    }
    (void)document.valueForKey(object, QLatin1String("$top"));
}

} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const QByteArray bytes = Fuzzing::bytes(data, size);
    if (const auto document = Document::parse(bytes)) {
        for (Reference object = 0; object < 64; ++object)
            ask(*document, object);
        ask(*document, document->root());
    }
    // What was read can be written, and from then on the bytes stay: a store that is opened and left a hundred times
    // holds what it held.
    if (const auto value = PropertyList::read(bytes)) {
        const auto written = PropertyList::write(*value);
        Fuzzing::require(written.has_value(), "what was read can be written");
        const auto again = PropertyList::read(*written);
        Fuzzing::require(again.has_value(), "what was written can be read");
        Fuzzing::require(PropertyList::write(*again) == written, "the second time the bytes stay");
    }
    return 0;
}
