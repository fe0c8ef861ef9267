#include "plugins/modelingplugin/utilities/componentframe/producthelper.h"

#include "platform/appfw/frameworkaccess.h"
#include "platform/caedata/caedata.h"
#include "platform/eom/eom.h"
#include "plugins/modelingplugin/utilities/componentframe/servicehelper.h"
#include "plugins/modelingplugin/utilities/componentframe/userexception.h"

#include <optional>

namespace vrn::orlo::plugin::modeling {

using KFR::NULLSP;

namespace {

icu::UnicodeString productName()
{
    auto const framework =
        KFR::strict_cast<appfw::IFrameworkAccessInterface>(ServiceHelper::getFrameworkAccess());
    KFRSmartPointer<appfw::IProductInterface> product;
    if (framework != NULLSP) {
        static_cast<void>(framework->getProduct(product));
    }
    icu::UnicodeString name;
    if (product != NULLSP) {
        static_cast<void>(product->getName(name));
    }
    return name;
}

KFRSmartPointer<CAE::IModelInterface> modelIfAny()
{
    try {
        return ServiceHelper::getCurrentModel();
    } catch (UserException const&) {
        return {};  // without a model there is no design part, and that is an answer
    }
}

/// The persistent part behind an instance; null when there is none.
KFRSmartPointer<CAE::IPartInterface> partOf(KFRSmartPointer<IEntityInterface> const& entity)
{
    auto const instance = KFR::strict_cast<KFR::EOM::IEOMInstanceInterface>(entity);
    if (instance == NULLSP) {
        return {};
    }
    KFRIService placed;
    static_cast<void>(instance->getPart(placed));
    auto const part = KFR::strict_cast<KFR::EOM::IEOMPartInterface>(placed);
    KFRSmartPointer<CAE::IPersistentObjectInterface> object;
    if (part != NULLSP) {
        static_cast<void>(part->getPersistentObject(object));
    }
    return KFR::loose_cast<CAE::IPartInterface>(object);
}

std::optional<CAE::GUIDDATA> identifierOf(KFRSmartPointer<CAE::IPartInterface> const& part)
{
    auto const object = KFR::strict_cast<CAE::IPersistentObjectInterface>(part);
    CAE::GUIDDATA identifier;
    if (object == NULLSP || !object->getIdentifier(identifier).isOk()) {
        return std::nullopt;
    }
    return identifier;
}

}  // namespace

ProductHelper* ProductHelper::instance()
{
    static ProductHelper helper;
    return &helper;
}

bool ProductHelper::isOrloProduct()
{
    static icu::UnicodeString const kModeler(u"Orlo Modeler");
    return productName() == kModeler;
}

bool ProductHelper::isShaperProduct()
{
    static icu::UnicodeString const kShaper(u"Orlo Shaper");
    return productName() == kShaper;
}

bool ProductHelper::isDesignPart(KFRSmartPointer<IEntityInterface> entity)
{
    auto const model = modelIfAny();
    if (model == NULLSP) {
        return false;
    }
    auto const part = partOf(entity);
    if (part == NULLSP) {
        return false;
    }
    KFRSmartPointer<CAE::IPartInterface> designPart;
    static_cast<void>(model->getDesignPart(designPart));
    auto const design = identifierOf(designPart);
    return design.has_value() && design == identifierOf(part);
}

}  // namespace vrn::orlo::plugin::modeling
