#include "host/model/propertytable.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

namespace vrn::orlo::host::model {

namespace {

KFRResult refused(EntityFailure code, std::string const& label, std::string_view name,
                  std::string_view wanted, std::string_view given)
{
    std::string text = "Property \"";
    text.append(name).append("\" of entity ").append(label).append(" takes ").append(wanted);
    return KFRResult(code).addParam(text.append(given).append("."));
}

}  // namespace

void PropertyTable::declare(std::string name, KFRAny start, Check check)
{
    if (name.empty() || property(name) != nullptr) {
        throw std::invalid_argument("PropertyTable: the name \"" + name + "\" is empty or taken");
    }
    if (propertyKindOf(start) == PropertyKind::none) {
        throw std::invalid_argument("PropertyTable: \"" + name + "\" starts with " +
                                    std::string(kindText(PropertyKind::none)));
    }
    if (std::string const wanted = check ? check(start) : std::string(); !wanted.empty()) {
        throw std::invalid_argument("PropertyTable: \"" + name + "\" does not start with " +
                                    wanted);
    }
    m_properties.push_back({std::move(name), std::move(start), std::move(check)});
}

std::vector<std::string> PropertyTable::names() const
{
    std::vector<std::string> names;
    for (Property const& property : m_properties) {
        names.push_back(property.m_name);
    }
    return names;
}

KFRAny const* PropertyTable::find(std::string_view name) const noexcept
{
    Property const* const found = property(name);
    return found != nullptr ? &found->m_value : nullptr;
}

KFRResult PropertyTable::check(std::string const& label, std::string_view name,
                               KFRAny const& value) const
{
    Property const* const found = property(name);
    if (found == nullptr) {
        return unknown(label, name);
    }
    PropertyKind const wanted = propertyKindOf(found->m_value);
    PropertyKind const given = propertyKindOf(value);
    if (given != wanted) {
        return refused(kOtherKind, label, name, kindText(wanted),
                       ", not " + std::string(kindText(given)));
    }
    if (std::string const text = found->m_check ? found->m_check(value) : std::string();
        !text.empty()) {
        return refused(kRefusedValue, label, name, text, "");
    }
    return KFR::ok;
}

KFRResult PropertyTable::unknown(std::string const& label, std::string_view name) const
{
    std::string text = "Entity " + label + " has no property \"";
    text.append(name).append("\"; it has");
    for (Property const& property : m_properties) {
        text.append(&property == m_properties.data() ? " " : ", ").append(property.m_name);
    }
    return KFRResult(kUnknownProperty).addParam(text.append(m_properties.empty() ? " none." : "."));
}

KFRAny PropertyTable::replace(std::string_view name, KFRAny const& value)
{
    for (Property& property : m_properties) {
        if (property.m_name == name) {
            return std::exchange(property.m_value, value);
        }
    }
    return {};
}

PropertyTable::Property const* PropertyTable::property(std::string_view name) const noexcept
{
    auto const found = std::find_if(m_properties.begin(), m_properties.end(),
                                    [name](Property const& row) { return row.m_name == name; });
    return found != m_properties.end() ? &*found : nullptr;
}

}  // namespace vrn::orlo::host::model
