/// \file
/// Application frame: what the library asks of its services so far. An interface without operations
/// is known by its name only; operations are added with the class that first calls them.

#pragma once

#include "platform/kfr/kfrresult.h"
#include "platform/kfr/kfrsmartpointer.h"

#include <unicode/unistr.h>

#include <string>

namespace vrn::orlo::appfw {

/// Undo and redo.
class IURFactoryInterface : public KFRIServiceInterface {
    KFR_INTERFACE("vrn.orlo.appfw.IURFactory")

    virtual KFRResult getMacroRecorder(KFRIService& recorder) = 0;
};

class KFRITrashBinInterface : public KFRIServiceInterface {
    KFR_INTERFACE("vrn.orlo.appfw.KFRITrashBin")
};

class KFRITrashBinFactoryInterface : public KFRIServiceInterface {
    KFR_INTERFACE("vrn.orlo.appfw.KFRITrashBinFactory")

    virtual KFRResult getTrashBin(KFRSmartPointer<KFRITrashBinInterface>& trashBin) = 0;
};

class KFRIPluginMgrInterface : public KFRIServiceInterface {
    KFR_INTERFACE("vrn.orlo.appfw.KFRIPluginMgr")
};

class IPivotManagerInterface : public KFRIServiceInterface {
    KFR_INTERFACE("vrn.orlo.appfw.IPivotManager")
};

class IObjectPropertiesManagerInterface : public KFRIServiceInterface {
    KFR_INTERFACE("vrn.orlo.appfw.IObjectPropertiesManager")
};

class IEntityAssociationManagerInterface : public KFRIServiceInterface {
    KFR_INTERFACE("vrn.orlo.appfw.IEntityAssociationManager")
};

class KFRIColorManagerInterface : public KFRIServiceInterface {
    KFR_INTERFACE("vrn.orlo.appfw.KFRIColorManager")
};

class ITypeBufferInterface : public KFRIServiceInterface {
    KFR_INTERFACE("vrn.orlo.appfw.ITypeBuffer")
};

class IMetaDataManagerInterface : public KFRIServiceInterface {
    KFR_INTERFACE("vrn.orlo.appfw.IMetaDataManager")
};

class IObjectReferenceUtilitiesInterface : public KFRIServiceInterface {
    KFR_INTERFACE("vrn.orlo.appfw.IObjectReferenceUtilities")
};

/// Service of the transform plug-in.
class KFRICommonService : public KFRIServiceInterface {
    KFR_INTERFACE("vrn.orlo.appfw.KFRICommonService")

    virtual KFRResult getTransformService(KFRIService& service) = 0;
};

}  // namespace vrn::orlo::appfw
