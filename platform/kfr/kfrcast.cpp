#include "platform/kfr/kfrsmartpointer.h"

#include <array>

namespace KFR::detail {

namespace {

constexpr int kCastFailureBase = 2010000000;

struct BridgeRow {
    int m_first;  // the first code of the kind; the kind ends where the next begins
    char const* m_text;
};

// clang-format off
constexpr std::array kBridges{
    BridgeRow{kCorbaBridge,  " failed. Internal CORBA bridge error="},
    BridgeRow{kCppBridge,    " failed. Internal C++ bridge error="},
    BridgeRow{kJavaBridge,   " failed. Internal Java bridge error="},
    BridgeRow{kPythonBridge, " failed. Internal Python bridge error="},
    BridgeRow{kDotNetBridge, " failed. Internal .NET bridge error="},
};
// clang-format on

/// The text behind the type name. Whether a text ends in a full stop, and that the last one has no
/// closing parenthesis, is as it has always been: callers compare these texts.
std::string failureText(int error)
{
    switch (error) {
        case kInterfaceNotImplemented:
            return " failed. Object does not implement the desired interface.";
        case kTypeCodeNotLoaded:
            return " failed. The typecode for the interface could not be loaded";
        case kNoProxy:
            return " failed. Cannot allocate a version 1 proxy.";
        default:
            break;
    }
    if (error < kBridgeEnd) {
        for (auto row = kBridges.rbegin(); row != kBridges.rend(); ++row) {
            if (error >= row->m_first) {
                return row->m_text + std::to_string(error);
            }
        }
    }
    return " failed (error=" + std::to_string(error);
}

}  // namespace

void throwCastFailure(char const* typeName, int error)
{
    throw KFRSystemException(
        kCastFailureBase + error,
        std::string("Cast from interface KFR.KFRIService to ") + typeName + failureText(error));
}

bool isSameObject(KFRIServiceInterface* left, KFRIServiceInterface* right) noexcept
{
    if (left == right) {
        return true;
    }
    return left != nullptr && right != nullptr && left->getInstanceID() == right->getInstanceID();
}

}  // namespace KFR::detail
