#include "host/model/persistentname.h"

#include <filesystem>

namespace vrn::orlo::host::model {

std::string stepOf(std::string_view name)
{
    std::string step;
    for (char const c : name) {
        switch (c) {
            case '/':
                step += "%2F";
                break;
            case '#':
                step += "%23";
                break;
            case '%':
                step += "%25";
                break;
            default:
                step += c;
        }
    }
    return step;
}

std::string firstStepOf(std::string const& file)
{
    return stepOf(std::filesystem::path(file).stem().string());
}

std::string SiblingNames::next(std::string_view name)
{
    std::string const step = stepOf(name);
    unsigned const count = ++m_counts[step];
    std::string full = m_above + '/' + step;
    return count == 1 ? full : full + '#' + std::to_string(count);
}

}  // namespace vrn::orlo::host::model
