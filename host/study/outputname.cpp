#include "host/study/outputname.h"

#include "host/study/keytable.h"

#include <string>

namespace vrn::orlo::host::study {

namespace fs = std::filesystem;

fs::path pathOf(KeyPlace const& place, DocumentNode const& value)
{
    std::string const text = lineOfText(place, value);
    if (text.find('\\') != std::string::npos) {
        throw StudyError(place, inQuotes(text) + " holds a backslash; write / between folders");
    }
    return text;
}

fs::path outputName(KeyPlace const& place, DocumentNode const& value)
{
    fs::path const given = pathOf(place, value);
    fs::path const name = given.lexically_normal();
    constexpr char kRemedy[] = "; give a file name, for instance 'results/tree.txt'";
    if (given.is_absolute() || *name.begin() == "..") {
        throw StudyError(place, inQuotes(given.string()) + " leaves the output folder" + kRemedy);
    }
    if (!name.has_filename() || name == "." || given.filename() == "." ||
        given.filename() == "..") {
        throw StudyError(place, inQuotes(given.string()) + " is a folder, not a file" + kRemedy);
    }
    return name;
}

}  // namespace vrn::orlo::host::study
