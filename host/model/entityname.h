/// \file
/// What an entity is called.

#pragma once

#include "platform/appfw/entity.h"

#include <optional>
#include <string>

namespace vrn::orlo::host::model {

/// The property that names an entity.
inline constexpr char const* kNameProperty = "name";

/// A value that is a name, a text of either kind, as UTF-8.
[[nodiscard]] std::optional<std::string> nameIn(KFRAny const& value);

/// The entity's name; nothing where it has no property "name", or one that is no text.
[[nodiscard]] std::optional<std::string> nameOf(appfw::IEntityInterface& entity);

/// What stands for an entity in messages: its name in quotes, or "number 7" where it has none.
[[nodiscard]] std::string labelOf(std::optional<std::string> const& name, unsigned int number);
[[nodiscard]] std::string labelOf(appfw::IEntityInterface& entity);

}  // namespace vrn::orlo::host::model
