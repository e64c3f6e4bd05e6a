// A loadable module linked with the library, which comes and goes with it.

#include "load_unload_client.h"

#include "QVRShpCore_Module.h"
#include "cls_MetadataRegistrar.h"
#include "omi_Singleton.h"
#include "shp_Shape.h"
#include "shp_ShapeDictionary.h"
#include "wip_WIP.h"

namespace {

/// Makes the message sink, too, and leaves it redirected.
void useMessageSink() {
    omi_Singleton<wip_WIP>::Instance().SetHandler(
        [](atr_String const &, wip_errorLevelEnm, QVRBasStringMode, void *) {});
}

} // namespace

extern "C" __attribute__((visibility("default"))) load_unload_Report load_unload_use() {
    QVRShpCore_Counters const c = QVRShpCore_counters();
    load_unload_Report report = {
        {c.moduleStartCount, c.specificStartCount, c.odiStartCount, c.shpStartCount, c.loadLevel, c.cEntryLevel},
        0,
        -1,
        0};
    for (unsigned int number : {0x2a40001u, 0x33f0001u, 0x33f0002u, 0x33f0003u, 0x33f0005u})
        report.numPersistent += omi_Singleton<cls_MetadataRegistrar>::Instance().Find(number) != nullptr;
    useMessageSink();
    for (char const * label : {"C3D20R", "CAXA84", "C3D8C2", "S4R", "C3D4", "C3D5", "MASS"})
        if (shp_Shape const * shape = omi_Singleton<shp_ShapeDictionary>::Instance().GetShape(label)) {
            if (report.numShapes++ == 0)
                report.firstShapeRef = static_cast<int>(shape->shapeRef);
        }
    return report;
}
