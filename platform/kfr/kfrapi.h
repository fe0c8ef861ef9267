/// \file
/// Visibility of what the framework's kernel library exports.

#pragma once

#define KFR_API __attribute__((visibility("default")))
