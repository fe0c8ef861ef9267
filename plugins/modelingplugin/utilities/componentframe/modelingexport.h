/// \file
/// Visibility of what the library exports.

#pragma once

#define MODELING_API __attribute__((visibility("default")))
