// A result variable to its packed form and back.

#include "harness.h"
#include "subjects.h"

#include <odiC_VariableDesc.h>
#include <omu_PrimTuple.h>

#include <memory>
#include <string>

namespace bench {

namespace {

constexpr char item[] = "result variable of 40 components";

odiC_VariableDesc variable() {
    odiC_VariableDesc result("S", "Stress components", res_OutputPosition_INTEGRATION_POINT, "Integration point",
                             res_DataType_TENSOR_3D_FULL, "Tensor", res_StorageType_FLOAT, false, -1e30f, 1e30f,
                             QVRBasStringMode());
    for (unsigned i = 0; i < 40; ++i)
        result.AddComponent(("S" + std::to_string(i)).c_str(), i);
    return result;
}

} // namespace

void timePacking() {
    auto const described = std::make_shared<odiC_VariableDesc const>(variable());
    auto const pack = [=] { return std::unique_ptr<omu_PrimTuple>(described->PackTuple(QVRBasStringMode())); };
    std::shared_ptr<omu_PrimTuple> const packed = pack();
    auto const unpack = [=] {
        packed->Begin();
        return odiC_VariableDesc::UnpackTuple(*packed, QVRBasStringMode());
    };
    mustAgree(item, "unpacking", "what was packed", unpack() != *described, 0);
    timeWhole(item, "packing", ours, 1, [=] { benchmark::DoNotOptimize(pack()); });
    timeWhole(item, "unpacking", ours, 1, [=] { benchmark::DoNotOptimize(unpack()); });
    timeWhole(item, "copying", ours, 1, [=] {
        odiC_VariableDesc copy(*described);
        benchmark::DoNotOptimize(copy);
    });
}

} // namespace bench
