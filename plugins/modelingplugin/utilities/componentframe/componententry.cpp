#include "plugins/modelingplugin/utilities/componentframe/componententry.h"

#include "plugins/modelingplugin/utilities/componentframe/componentinfo.h"
#include "plugins/modelingplugin/utilities/componentframe/utilitiesfactory.h"

#include <new>

std::string KFR_Comp_Info(std::string key)
{
    return vrn::orlo::plugin::modeling::componentinfo::value(key);
}

int KFR_Comp_Init(KFRSmartPointer<KFRIServicePublisherInterface> publisher)
{
    if (publisher == KFR::NULLSP) {
        return 0;  // nobody would own the factory
    }
    try {
        // No pointer is kept: the publisher owns the factory once it has registered itself.
        static_cast<void>(new vrn::orlo::plugin::modeling::generated::UtilitiesFactory(publisher));
    } catch (std::bad_alloc const&) {
        // The framework is told nothing: the service will simply not be there.
    }
    return 0;
}

void KFR_Get_ServiceVersionTable(KFRSequence<std::string>& table)
{
    table.clear();
}
