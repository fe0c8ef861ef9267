/// \file
/// Matchers for handles and for the framework's exceptions.

#pragma once

#include "platform/kfr/kfrexception.h"
#include "platform/kfr/kfrsmartpointer.h"

#include <unicode/unistr.h>

#include <gmock/gmock.h>

#include <ostream>
#include <string>

// gtest finds these by argument; they stand with the types that they print.
inline void PrintTo(KFRIService const& service, std::ostream* out)
{
    if (service == KFR::NULLSP) {
        *out << "null";
    } else {
        *out << service->getObjectName() << " #" << service->getInstanceID();
    }
}

U_NAMESPACE_BEGIN
inline void PrintTo(UnicodeString const& text, std::ostream* out)
{
    std::string utf8;
    *out << '"' << text.toUTF8String(utf8) << '"';
}
U_NAMESPACE_END

namespace vrn::orlo::plugin::modeling::test {

MATCHER(IsNullHandle, negation ? "a handle" : "the null handle")
{
    return arg == KFR::NULLSP;
}

/// One object, whatever the interface.
MATCHER_P(IsObject, expected, negation ? "another object" : "the expected object")
{
    return arg != KFR::NULLSP && arg == expected;
}

/// What a strict cast to an interface throws when the object lacks it.
inline auto IsMissingInterface(std::string const& typeName)
{
    using ::testing::AllOf;
    using ::testing::Property;
    return AllOf(Property(&KFRException::getCode, 2010000001),
                 Property(&KFRException::getText,
                          "Cast from interface KFR.KFRIService to " + typeName +
                              " failed. Object does not implement the desired interface."));
}

}  // namespace vrn::orlo::plugin::modeling::test
