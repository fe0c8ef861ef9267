#include "host/kernel/serviceparameters.h"

#include <algorithm>

namespace vrn::orlo::host::kernel {

namespace {

bool addItem(ServiceParameters& parameters, std::string_view item)
{
    std::size_t const equals = item.find('=');
    if (equals == std::string_view::npos || equals == 0) {
        return false;
    }
    std::string_view const key = item.substr(0, equals);
    std::string value(item.substr(equals + 1));
    if (key == "#" || key == "serviceTable") {
        if (value.empty()) {
            return false;
        }
        if (std::ranges::find(parameters.m_tables, value) == parameters.m_tables.end()) {
            parameters.m_tables.push_back(std::move(value));
        }
        return true;
    }
    auto const [known, added] = parameters.m_values.try_emplace(std::string(key), value);
    return added || known->second == value;
}

}  // namespace

std::optional<ServiceParameters> ServiceParameters::parse(std::string_view text)
{
    ServiceParameters parameters;
    if (text.empty()) {
        return parameters;
    }
    for (std::size_t start = 0; start <= text.size();) {
        std::size_t const end = std::min(text.find(',', start), text.size());
        if (!addItem(parameters, text.substr(start, end - start))) {
            return std::nullopt;
        }
        start = end + 1;
    }
    return parameters;
}

}  // namespace vrn::orlo::host::kernel
