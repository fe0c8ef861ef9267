#include "host/model/entityname.h"

namespace vrn::orlo::host::model {

std::optional<std::string> nameIn(KFRAny const& value)
{
    if (auto const* const text = value.get<std::string>()) {
        return *text;
    }
    if (auto const* const text = value.get<icu::UnicodeString>()) {
        std::string utf8;
        return text->toUTF8String(utf8);
    }
    return std::nullopt;
}

std::optional<std::string> nameOf(appfw::IEntityInterface& entity)
{
    KFRAny value;
    entity.getProperty(kNameProperty, value);  // leaves the value empty where it fails
    return nameIn(value);
}

std::string labelOf(std::optional<std::string> const& name, unsigned int number)
{
    return name && !name->empty() ? '"' + *name + '"' : "number " + std::to_string(number);
}

std::string labelOf(appfw::IEntityInterface& entity)
{
    return labelOf(nameOf(entity), entity.getEntityReference().id);
}

}  // namespace vrn::orlo::host::model
