// The check of a value against its range, with a text for the user. It stands here and not with the
// other messages, since it needs the ranges.

#include "platform/appfw/units.h"
#include "plugins/modelingplugin/utilities/componentframe/localizationhelper.h"
#include "plugins/modelingplugin/utilities/componentframe/messagehandler.h"
#include "plugins/modelingplugin/utilities/componentframe/servicehelper.h"
#include "plugins/modelingplugin/utilities/numerics/floatvaluerange.h"

namespace vrn::orlo::plugin::modeling {

using KFR::NULLSP;

namespace {

/// Message of a value outside a range, by the kinds of its low and its high bound; 0 for none.
constexpr int kRangeMessages[3][3] = {
    // no high   closed   open
    {0, 10610, 10609},      // no low
    {10608, 10614, 10612},  // closed
    {10607, 10613, 10611},  // open
};

}  // namespace

bool MessageHandler::checkFloatValueWithMsg(FloatValue const& value, FloatValueRange const& range,
                                            icu::UnicodeString const& name)
{
    if (range.inRange(value)) {
        return true;
    }
    auto const units = KFR::strict_cast<appfw::IUnitsInterface>(ServiceHelper::getUnitsService());
    FloatValue low;
    FloatValue high;
    int const lowKind = range.getLowBound(low);
    int const highKind = range.getUpBound(high);
    icu::UnicodeString lowText;
    icu::UnicodeString highText;
    if (units != NULLSP) {
        static_cast<void>(units->format(low, lowText, 1));
        static_cast<void>(units->format(high, highText, 1));
    }
    KFRSequence<KFRAny> params{KFRAny(name)};
    if (lowKind != FloatValueRange::none) {
        params.append(KFRAny(lowText));
    }
    if (highKind != FloatValueRange::none) {
        params.append(KFRAny(highText));
    }
    if (int const id = kRangeMessages[lowKind][highKind]; id != 0) {
        showMessage(LocalStr(id).format(params).getUStr(), Severity::warning, false);
    }
    return false;
}

bool MessageHandler::checkFloatValueWithMsg(FloatValue const& value, FloatValueRange const& range,
                                            std::string const& nameId)
{
    return checkFloatValueWithMsg(value, range, LocalStr(nameId).getUStr());
}

bool MessageHandler::checkFloatValueWithMsg(KFRAny const& value, FloatValueRange const& range,
                                            unsigned int nameId)
{
    FloatValue extracted;
    if (!(value >>= extracted)) {
        return false;
    }
    return checkFloatValueWithMsg(extracted, range, LocalStr(static_cast<int>(nameId)).getUStr());
}

}  // namespace vrn::orlo::plugin::modeling
