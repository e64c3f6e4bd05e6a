#include "odiC_Conversions.h"

#include <algorithm>
#include <cstddef>
#include <iterator>

namespace {

/// One row of a conversion. Every number without a row takes the conversion's default.
struct Row {
    int from, to;
};

template <std::size_t count> int convert(Row const (&rows)[count], int from, int byDefault) {
    auto const * const row = std::find_if(rows, std::end(rows), [from](Row const & r) { return r.from == from; });
    return row == std::end(rows) ? byDefault : row->to;
}

// clang-format off
constexpr Row typesFromStored[] = {
    {odm_DataType_SCALAR,     res_DataType_SCALAR},
    {odm_DataType_VECTOR,     res_DataType_VECTOR},
    {odm_DataType_QUATERNION, res_DataType_QUATERNION_3D},
    {odm_DataType_TENSOR,     res_DataType_TENSOR},
};

constexpr Row typesToStored[] = {
    {res_DataType_SCALAR,            odm_DataType_SCALAR},
    {res_DataType_VECTOR,            odm_DataType_VECTOR},
    {res_DataType_QUATERNION_2D,     odm_DataType_QUATERNION},
    {res_DataType_QUATERNION_3D,     odm_DataType_QUATERNION},
    {res_DataType_TENSOR,            odm_DataType_TENSOR},
    {res_DataType_TENSOR_3D_FULL,    odm_DataType_TENSOR},
    {res_DataType_TENSOR_3D_PLANAR,  odm_DataType_TENSOR},
    {res_DataType_TENSOR_3D_SURFACE, odm_DataType_TENSOR},
    {res_DataType_TENSOR_2D_PLANAR,  odm_DataType_TENSOR},
    {res_DataType_TENSOR_2D_SURFACE, odm_DataType_TENSOR},
};

constexpr Row positionsFromStored[] = {
    {odm_Position_NODAL,             res_OutputPosition_NODAL},
    {odm_Position_INTEGRATION_POINT, res_OutputPosition_INTEGRATION_POINT},
    {odm_Position_ELEMENT_NODAL,     res_OutputPosition_ELEMENT_NODAL},
    {odm_Position_ELEMENT_CENTROID,  res_OutputPosition_ELEMENT_CENTROID},
    {odm_Position_ELEMENT_FACE,      res_OutputPosition_ELEMENT_FACE},
    {2048, 13},
    {4096, 14},
};

// Several positions share a code, so stored files give back the centroid for WHOLE_ELEMENT, 13 for SURFACE_NODAL, and no
// position at all for the default, 16.
constexpr Row positionsToStored[] = {
    {res_OutputPosition_NODAL,             odm_Position_NODAL},
    {res_OutputPosition_INTEGRATION_POINT, odm_Position_INTEGRATION_POINT},
    {res_OutputPosition_ELEMENT_FACE,      odm_Position_ELEMENT_FACE},
    {res_OutputPosition_ELEMENT_NODAL,     odm_Position_ELEMENT_NODAL},
    {res_OutputPosition_WHOLE_ELEMENT,     odm_Position_ELEMENT_CENTROID},
    {res_OutputPosition_ELEMENT_CENTROID,  odm_Position_ELEMENT_CENTROID},
    {11, 4096},
    {res_OutputPosition_SURFACE_NODAL,     2048},
    {13, 2048},
    {14, 4096},
};
// clang-format on

} // namespace

res_DataTypeEnm odiC_ConvertOdmToRes(odm_DataTypeEnm stored) {
    return static_cast<res_DataTypeEnm>(convert(typesFromStored, stored, res_DataType_NUM_DATA_TYPE));
}

res_OutputPositionEnm odiC_ConvertOdmToRes(odm_PositionEnm stored) {
    return static_cast<res_OutputPositionEnm>(
        convert(positionsFromStored, stored, res_OutputPosition_UNDEFINED_POSITION));
}

odm_DataTypeEnm odiC_ConvertResToOdm(res_DataTypeEnm type) {
    return static_cast<odm_DataTypeEnm>(convert(typesToStored, type, 0));
}

odm_PositionEnm odiC_ConvertResToOdm(res_OutputPositionEnm position) {
    return static_cast<odm_PositionEnm>(convert(positionsToStored, position, 16));
}
