/// \file
/// The three functions by which the framework takes the component in.

#pragma once

#include "platform/kfr/kfrframework.h"
#include "plugins/modelingplugin/utilities/componentframe/modelingexport.h"

#include <string>

// The framework finds these by name, and both sides are C++: the C linkage is for the names only.
extern "C" {

/// Value of a key of the component's information block; empty for an unknown key.
MODELING_API std::string KFR_Comp_Info(std::string key);

/// Makes the component's factory, which registers itself with the publisher and belongs to it.
/// \return 0, whether or not the factory could be made
MODELING_API int KFR_Comp_Init(KFRSmartPointer<KFRIServicePublisherInterface> publisher);

/// The component's version table, which has no rows: empties `table`.
MODELING_API void KFR_Get_ServiceVersionTable(KFRSequence<std::string>& table);
}
