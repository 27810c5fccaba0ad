// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "model/FoodFile.h"

#include <QFile>

#define XML_DTD // or the header keeps the limits on entities to itself
#include <cerrno>
#include <expat.h>
#include <fcntl.h>
#include <memory>
#include <sys/stat.h>
#include <unistd.h>

namespace {

// A thousand times our largest one. A file that breaks off is read again for every question asked of its food.
constexpr qint64 largestFile = 4 * 1024 * 1024;

// An open regular file of a food file's size, closed when it goes out of scope.
class RegularFile {
public:
    explicit RegularFile(const QString &path)
        : descriptor(::open(QFile::encodeName(path).constData(), O_RDONLY | O_NONBLOCK | O_CLOEXEC))
    {
        struct stat status = {};
        regular = descriptor >= 0 && ::fstat(descriptor, &status) == 0 && S_ISREG(status.st_mode)
            && status.st_size <= largestFile;
    }
    ~RegularFile()
    {
        if (descriptor >= 0)
            ::close(descriptor);
    }
    Q_DISABLE_COPY_MOVE(RegularFile)

    [[nodiscard]] bool isOpen() const { return regular; }

    // The number of bytes read, 0 at the end, negative on an error.
    [[nodiscard]] int read(void *buffer, int size) const
    {
        ssize_t count = -1;
        do {
            count = ::read(descriptor, buffer, static_cast<std::size_t>(size));
        } while (count < 0 && errno == EINTR);
        return static_cast<int>(count);
    }

private:
    int descriptor;
    bool regular = false;
};

void startElement(void *user, const XML_Char *element, const XML_Char **attributes)
{
    (*static_cast<const FoodFile::DidStartElement *>(user))(element, FoodFile::Attributes(attributes));
}

} // namespace

std::optional<std::string_view> FoodFile::Attributes::value(std::string_view name) const
{
    for (const char *const *entry = list; *entry != nullptr; entry += 2)
        if (name == entry[0])
            return entry[1];
    return std::nullopt;
}

bool FoodFile::parse(const QString &path, const DidStartElement &didstartelement)
{
    const RegularFile file(path);
    if (!file.isOpen())
        return false;
    const std::unique_ptr<XML_ParserStruct, decltype(&XML_ParserFree)> parser(
        XML_ParserCreate(nullptr), XML_ParserFree);
    if (!parser)
        return false; // GCOVR_EXCL_LINE: only without memory
    // Our files declare no entities. Whoever does gets them as far as they cost no more than a file might.
    XML_SetBillionLaughsAttackProtectionActivationThreshold(parser.get(), 64 * 1024);
    XML_SetBillionLaughsAttackProtectionMaximumAmplification(parser.get(), 2.0F);
    DidStartElement callback = didstartelement;
    XML_SetUserData(parser.get(), &callback);
    XML_SetStartElementHandler(parser.get(), startElement);

    constexpr int chunk = 16384; // more than any of our food files
    for (;;) {
        void *buffer = XML_GetBuffer(parser.get(), chunk);
        if (buffer == nullptr)
            return false; // GCOVR_EXCL_LINE: only without memory
        const int count = file.read(buffer, chunk);
        if (count < 0)
            return false;
        const bool last = count == 0;
        if (XML_ParseBuffer(parser.get(), count, last ? 1 : 0) != XML_STATUS_OK)
            return false;
        if (last)
            return true;
    }
}
