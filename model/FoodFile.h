// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

#include <functional>
#include <optional>
#include <string_view>

// Streams a food file's start tags. expat was chosen over QXmlStreamReader, which takes three times as long for a file:
// it works on the bytes as they are, hands out what came before a break, and bounds what entities may grow to. Element
// and attribute names arrive as written, prefix included; nothing outside the file is ever fetched.
namespace FoodFile {

// The attributes of one start tag. Valid only while the callback that got it runs.
class Attributes {
public:
    // A null-terminated list of name, value, name, value, ... in UTF-8.
    explicit Attributes(const char *const *namesandvalues)
        : list(namesandvalues)
    { }

    // The value of an attribute in UTF-8, or nothing when the tag has no attribute of that name.
    [[nodiscard]] std::optional<std::string_view> value(std::string_view name) const;

private:
    const char *const *list;
};

using DidStartElement = std::function<void(std::string_view element, const Attributes &attributes)>;

// Calls back once for each start tag, in document order, before it returns. True when the document was read to its end
// without error; false when it breaks off, is no XML, cannot be read, is larger than 4 MiB, or is anything but a
// regular file (a pipe could keep the window waiting for ever). The tags before a break have been reported by then.
bool parse(const QString &path, const DidStartElement &didstartelement);

} // namespace FoodFile
