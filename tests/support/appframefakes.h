/// \file
/// Objects for the members of the service holders whose interfaces have operations. Each hands out
/// what the test has put into it, and always with a failing result: nobody is to read it.

#pragma once

#include "platform/appfw/appfw.h"
#include "platform/appfw/selection.h"
#include "platform/caedata/caedata.h"
#include "platform/kfr/kfrconfiguration.h"
#include "platform/kfr/kfrserviceobject.h"
#include "platform/sysutils/sysutils.h"

#include <unicode/unistr.h>

#include <map>
#include <string>

namespace vrn::orlo::plugin::modeling::test {

/// What an operation with an out-argument does: leaves it as it was when there is nothing to give.
template <class Handle>
KFRResult handOut(Handle const& given, Handle& out)
{
    if (given != KFR::NULLSP) {
        out = given;
    }
    return KFR::notDone;
}

class FakePlugin final : public KFRServiceObjectImpl<appfw::IPluginInterface> {
public:
    icu::UnicodeString folder;

    KFRResult getFolder(icu::UnicodeString& out) override
    {
        out = folder;
        return KFR::notDone;
    }
};

class FakeFrameworkAccess final : public KFRServiceObjectImpl<appfw::IFrameworkAccessInterface> {
public:
    std::map<std::string, KFRSmartPointer<appfw::IPluginInterface>> plugins;

    KFRResult getPlugin(std::string const& name,
                        KFRSmartPointer<appfw::IPluginInterface>& plugin) override
    {
        return handOut(plugins[name], plugin);
    }
};

class FakeTrashBinFactory final : public KFRServiceObjectImpl<appfw::KFRITrashBinFactoryInterface> {
public:
    KFRSmartPointer<appfw::KFRITrashBinInterface> trashBin;

    KFRResult getTrashBin(KFRSmartPointer<appfw::KFRITrashBinInterface>& out) override
    {
        return handOut(trashBin, out);
    }
};

class FakeUndoRedoFactory final : public KFRServiceObjectImpl<appfw::IURFactoryInterface> {
public:
    KFRIService recorder;

    KFRResult getMacroRecorder(KFRIService& out) override { return handOut(recorder, out); }
};

class FakeSelectionManager final : public KFRServiceObjectImpl<appfw::ISelectionManagerInterface> {
public:
    KFRSmartPointer<appfw::IPickFilterManagerInterface> pickFilters;

    KFRResult getPickFilterManager(
        KFRSmartPointer<appfw::IPickFilterManagerInterface>& out) override
    {
        return handOut(pickFilters, out);
    }
};

class FakeSession final : public KFRServiceObjectImpl<CAE::IPersistenceSessionInterface> {
public:
    KFRSmartPointer<CAE::IModelInterface> currentModel;

    KFRResult getCurrentModel(KFRSmartPointer<CAE::IModelInterface>& out) override
    {
        return handOut(currentModel, out);
    }
};

class FakePFW final : public KFRServiceObjectImpl<CAE::IPFWInterface> {
public:
    KFRSmartPointer<CAE::IPersistenceSessionInterface> session;
    std::map<icu::UnicodeString, KFRSmartPointer<CAE::IModelInterface>> models;

    KFRResult getSession(KFRSmartPointer<CAE::IPersistenceSessionInterface>& out) override
    {
        return handOut(session, out);
    }
    KFRResult getModelByName(icu::UnicodeString const& name,
                             KFRSmartPointer<CAE::IModelInterface>& out) override
    {
        return handOut(models[name], out);
    }
};

class FakeConfigurationManager final
    : public KFRServiceObjectImpl<KFRIConfigurationManagerInterface> {
public:
    std::map<icu::UnicodeString, KFRSmartPointer<KFRIConfigurationInterface>> configurations;

    KFRResult getConfiguration(icu::UnicodeString const& name,
                               KFRSmartPointer<KFRIConfigurationInterface>& out) override
    {
        return handOut(configurations[name], out);
    }
};

/// No file exists for it.
class FakeFileUtils final
    : public KFRServiceObjectImpl<KFR::Util::SystemUtils::KFRIFileUtilsInterface> {
public:
    KFRResult exists(icu::UnicodeString const&) override { return KFR::notDone; }
    KFRResult remove(icu::UnicodeString const&) override { return KFR::ok; }
};

/// Changes no path.
class FakePathUtils final
    : public KFRServiceObjectImpl<KFR::Util::SystemUtils::KFRIPathUtilsInterface> {
public:
    icu::UnicodeString toNative(icu::UnicodeString const& path) override { return path; }
    icu::UnicodeString join(icu::UnicodeString const& folder,
                            icu::UnicodeString const& path) override
    {
        return folder + u'/' + path;
    }
};

}  // namespace vrn::orlo::plugin::modeling::test
