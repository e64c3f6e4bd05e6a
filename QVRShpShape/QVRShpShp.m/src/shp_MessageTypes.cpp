#include "shp_MessageTypes.h"

#include "atr_translate.h"
#include "wip_WIP.h"

namespace {

void report(atr_translate const & message) {
    omi_Singleton<wip_WIP>::Instance().Error(message.Result(), wip_errorLevel_ERROR, QVRBasStringMode());
}

} // namespace

void shp_MessageTypes::ErrorAvrgVolumeAreaNegative() {
    report(atr_translate("Average volume/area negative."));
}

void shp_MessageTypes::ErrorUnsupportedPositionOnMethod(char const * methodName, res_OutputPositionEnm position) {
    atr_translate message("%s: Unsupported position %s");
    atr_SubstituteFormat(message, 1, methodName);
    atr_SubstituteFormat(message, 2, atr_StringBase(static_cast<int>(position)));
    report(message);
}
