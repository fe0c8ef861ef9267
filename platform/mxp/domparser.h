/// \file
/// XML document parser.

#pragma once

#include "platform/kfr/kfrsmartpointer.h"

namespace KFR::MXP {

class KFRIDOMParserInterface : public KFRIServiceInterface {
    KFR_INTERFACE("KFR.MXP.KFRIDOMParser")
};

}  // namespace KFR::MXP
