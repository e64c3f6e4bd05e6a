// The tables of the result enumerations. A row is a value and its name; the order of the rows is what
// omu_PrimEnum::Name and Value index, and it is not everywhere the order of the values. Scripts and stored files know
// the names exactly as they stand here, misspelling included.

#include "res_PrimEnums.h"

namespace {

// clang-format off
constexpr omu_PrimEnumRow outputPositionRows[] = {
    {res_OutputPosition_UNDEFINED_POSITION, "UNDEFINED_POSITION"},
    {res_OutputPosition_NODAL, "NODAL"},
    {res_OutputPosition_SURFACE_NODAL, "SURFACE_NODAL"},
    {res_OutputPosition_INTEGRATION_POINT, "INTEGRATION_POINT"},
    {res_OutputPosition_ELEMENT_FACE, "ELEMENT_FACE"},
    {res_OutputPosition_ELEMENT_FACE_INTEGRATION_POINT, "ELEMENT_FACE_INTEGRATION_POINT"},
    {res_OutputPosition_SURFACE_INTEGRATION_POINT, "SURFACE_INTEGRATION_POINT"},
    {res_OutputPosition_ELEMENT_NODAL, "ELEMENT_NODAL"},
    {res_OutputPosition_WHOLE_ELEMENT, "WHOLE_ELEMENT"},
    {res_OutputPosition_ELEMENT_CENTROID, "ELEMENT_CENTROID"},
    {res_OutputPosition_WHOLE_REGION, "WHOLE_REGION"},
    {res_OutputPosition_WHOLE_PART_INSTANCE, "WHOLE_PART_INSTANCE"},
    {res_OutputPosition_WHOLE_MODEL, "WHOLE_MODEL"},
    {res_OutputPosition_GENERAL_PARTICLE, "GENERAL_PARTICLE"},
    {0, nullptr}};

constexpr omu_PrimEnumRow dataTypeRows[] = {
    {res_DataType_ENUMERATION, "ENUMERATION"},
    {res_DataType_BOOLEAN, "BOOLEAN"},
    {res_DataType_INTEGER, "INTEGER"},
    {res_DataType_SCALAR, "SCALAR"},
    {res_DataType_VECTOR, "VECTOR"},
    {res_DataType_MATRIX, "MATRIX"},
    {res_DataType_QUATERNION_2D, "QUATERNION_2D"},
    {res_DataType_QUATERNION_3D, "QUATERNION_3D"},
    {res_DataType_TENSOR, "TENSOR"},
    {res_DataType_TENSOR_3D_FULL, "TENSOR_3D_FULL"},
    {res_DataType_TENSOR_3D_PLANAR, "TENSOR_3D_PLANAR"},
    {res_DataType_TENSOR_3D_SURFACE, "TENSOR_3D_SURFACE"},
    {res_DataType_TENSOR_2D_PLANAR, "TENSOR_2D_PLANAR"},
    {res_DataType_TENSOR_2D_SURFACE, "TENSOR_2D_SURFACE"},
    {res_DataType_ARRAY_1D, "ARRAY_1D"},
    {res_DataType_NUM_DATA_TYPE, "NUM_DATA_TYPE"},
    {0, nullptr}};

constexpr omu_PrimEnumRow matrixTypeRows[] = {
    {res_MatrixType_GENERIC_MATRIX, "GENERIC_MATRIX"},
    {res_MatrixType_SYMMETRIC_MATRIX, "SYMMETRIC_MATRIX"},
    {0, nullptr}};

constexpr omu_PrimEnumRow coordSystemRows[] = {
    {res_CoordSystem_PRINCIPAL, "PRINCIPAL"},
    {res_CoordSystem_GLOBAL, "GLOBAL"},
    {res_CoordSystem_LOCAL, "LOCAL"},
    {res_CoordSystem_NOT_APPLICABLE, "NOT_APPLICABLE"},
    {res_CoordSystem_USER_SPECIFIED, "USER_SPECIFIED"},
    {0, nullptr}};

constexpr omu_PrimEnumRow componentRows[] = {
    {res_Component_XX_COMPONENT, "XX-COMPONENT"},
    {res_Component_YY_COMPONENT, "YY-COMPONENT"},
    {res_Component_ZZ_COMPONENT, "ZZ-COMPONENT"},
    {res_Component_XY_COMPONENT, "XY-COMPONENT"},
    {res_Component_XZ_COMPONENT, "XZ-COMPONENT"},
    {res_Component_YZ_COMPONENT, "YZ-COMPONENT"},
    {res_Component_YX_COMPONENT, "YX-COMPONENT"},
    {res_Component_ZX_COMPONENT, "ZX-COMPONENT"},
    {res_Component_ZY_COMPONENT, "ZY-COMPONENT"},
    {res_Component_UNDEFINED, "UNDEFINED"},
    {0, nullptr}};

constexpr omu_PrimEnumRow invariantRows[] = {
    {res_Invariant_MAX_PRINCIPAL, "MAX_PRINCIPAL"},
    {res_Invariant_MID_PRINCIPAL, "MID_PRINCIPAL"},
    {res_Invariant_MIN_PRINCIPAL, "MIN_PRINCIPAL"},
    {res_Invariant_MAXIMUM_IN_PLANE_PRINCIPAL, "MAXIMUM_IN-PLANE_PRINCIPAL"},
    {res_Invariant_MINIMUM_IN_PLANE_PRINCIPAL, "MINIMUM_IN-PLANE_PRINCIPAL"},
    {res_Invariant_OUT_OF_PLANE_PRINCIPAL, "OUT-OF-PLANE_PRINCIPAL"},
    {res_Invariant_MISES, "MISES"},
    {res_Invariant_TRESCA, "TRESCA"},
    {res_Invariant_PRESS, "PRESS"},
    {res_Invariant_INV3, "INV3"},
    {res_Invariant_MAGNITUDE, "MAGNITUDE"},
    {res_Invariant_MAX_PRINCIPAL_ABS, "MAX_PRINCIPAL_ABS"},
    {res_Invariant_MAX_IN_PLANE_PRINCIPAL_ABS, "MAX_IN-PLANE_PRINCIPAL_ABS"},
    {0, nullptr}};

constexpr omu_PrimEnumRow fieldCompletenessRows[] = {
    {res_FieldCompleteness_FULL_FIELD, "FULL_FIELD"},
    {res_FieldCompleteness_PARTIAL_FIELD, "PARTIAL_FIELD"},
    {res_FieldCompleteness_EMPTY_FIELD, "EMPTY_FIELD"},
    {0, nullptr}};

constexpr omu_PrimEnumRow clampTypeRows[] = {
    {res_ClampType_NO_CLAMPS, "NO_CLAMPS"},
    {res_ClampType_MINIMUM_CLAMP, "MINIMUM_CLAMP"},
    {res_ClampType_MAXINUM_CLAMP, "MAXINUM_CLAMP"},
    {res_ClampType_BOTH_CLAMPS, "BOTH_CLAMPS"},
    {0, nullptr}};

constexpr omu_PrimEnumRow storageTypeRows[] = {
    {res_StorageType_FLOAT, "FLOAT"},
    {res_StorageType_DOUBLE, "DOUBLE"},
    {res_StorageType_INTEGER, "INTEGER"},
    {res_StorageType_BOOLEAN, "BOOLEAN"},
    {0, nullptr}};

constexpr omu_PrimEnumRow loadBCTypeRows[] = {
    {res_LoadBCType_FIXED_DISPLACEMENT, "FIXED_DISPLACEMENT"},
    {res_LoadBCType_FIXED_VELOCITY, "FIXED_VELOCITY"},
    {res_LoadBCType_FIXED_ACCELERATION, "FIXED_ACCELERATION"},
    {res_LoadBCType_X_SYMMETRY, "X_SYMMETRY"},
    {res_LoadBCType_Y_SYMMETRY, "Y_SYMMETRY"},
    {res_LoadBCType_Z_SYMMETRY, "Z_SYMMETRY"},
    {res_LoadBCType_X_ANTISYMMETRY, "X_ANTISYMMETRY"},
    {res_LoadBCType_Y_ANTISYMMETRY, "Y_ANTISYMMETRY"},
    {res_LoadBCType_Z_ANTISYMMETRY, "Z_ANTISYMMETRY"},
    {res_LoadBCType_ENCASTRE, "ENCASTRE"},
    {res_LoadBCType_PINNED, "PINNED"},
    {res_LoadBCType_NO_DEFORM, "NO_DEFORM"},
    {res_LoadBCType_NO_OVAL, "NO_OVAL"},
    {res_LoadBCType_NO_WARP, "NO_WARP"},
    {res_LoadBCType_FIXED_TEMPERATURE, "FIXED_TEMPERATURE"},
    {res_LoadBCType_FLUID_CAVITY, "FLUID_CAVITY"},
    {res_LoadBCType_PORE_PRESSURE, "PORE_PRESSURE"},
    {res_LoadBCType_SHELL_TO_SOLID, "SHELL_TO_SOLID"},
    {res_LoadBCType_CONCENTRATED_LOAD, "CONCENTRATED_LOAD"},
    {res_LoadBCType_DISTRIBUTED_LOAD, "DISTRIBUTED_LOAD"},
    {res_LoadBCType_UNDEFINED, "UNDEFINED"},
    {0, nullptr}};

constexpr omu_PrimEnumRow loadDescriptorRows[] = {
    {res_LoadDescriptor_NONE, "NONE"},
    {res_LoadDescriptor_BODY_FORCE_X, "BODY_FORCE_X"},
    {res_LoadDescriptor_BODY_FORCE_Y, "BODY_FORCE_Y"},
    {res_LoadDescriptor_BODY_FORCE_Z, "BODY_FORCE_Z"},
    {res_LoadDescriptor_BODY_FORCE_X_USER, "BODY_FORCE_X_USER"},
    {res_LoadDescriptor_BODY_FORCE_Y_USER, "BODY_FORCE_Y_USER"},
    {res_LoadDescriptor_BODY_FORCE_Z_USER, "BODY_FORCE_Z_USER"},
    {res_LoadDescriptor_CENT, "CENT"},
    {res_LoadDescriptor_CENTRIF, "CENTRIF"},
    {res_LoadDescriptor_CORIOLIS, "CORIOLIS"},
    {res_LoadDescriptor_GRAVITY, "GRAVITY"},
    {res_LoadDescriptor_HYDROSTATIC_PRESSURE, "HYDROSTATIC_PRESSURE"},
    {res_LoadDescriptor_PRESSURE, "PRESSURE"},
    {res_LoadDescriptor_PRESSURE_USER, "PRESSURE_USER"},
    {res_LoadDescriptor_FOUNDATION, "FOUNDATION"},
    {res_LoadDescriptor_BODY_FLUX, "BODY FLUX"},
    {res_LoadDescriptor_BODY_FLUX_USER, "BODY_FLUX_USER"},
    {res_LoadDescriptor_FLUX, "FLUX"},
    {res_LoadDescriptor_FLUX_USER, "FLUX_USER"},
    {res_LoadDescriptor_FILM, "FILM"},
    {res_LoadDescriptor_FILM_USER, "FILM_USER"},
    {res_LoadDescriptor_RADIATION, "RADIATION"},
    {res_LoadDescriptor_SEEPAGE, "SEEPAGE"},
    {res_LoadDescriptor_DRAIN_ONLY_SEEPAGE, "DRAIN_ONLY_SEEPAGE"},
    {res_LoadDescriptor_SEEPAGE_USER, "SEEPAGE_USER"},
    {res_LoadDescriptor_PORE, "PORE"},
    {res_LoadDescriptor_PORE_USER, "PORE_USER"},
    {res_LoadDescriptor_ELECTRIC_BODY_FLUX, "ELECTRIC_BODY_FLUX"},
    {res_LoadDescriptor_SURFACE_CHARGE, "SURFACE_CHARGE"},
    {res_LoadDescriptor_VOLUMETRIC_SOURCE_DENSITY, "VOLUMETRIC_SOURCE_DENSITY"},
    {res_LoadDescriptor_DENSITY, "DENSITY"},
    {res_LoadDescriptor_BODY_CONCENTRATION_FLUX, "BODY_CONCENTRATION_FLUX"},
    {res_LoadDescriptor_BODY_CONCENTRATION_FLUX_USER, "BODY_CONCENTRATION_FLUX_USER"},
    {res_LoadDescriptor_CONCENTRATION_FLUX, "CONCENTRATION_FLUX"},
    {res_LoadDescriptor_CONCENTRATION_FLUX_USER, "CONCENTRATION_FLUX_USER"},
    {res_LoadDescriptor_PRESSURE_PENETRATION, "PRESSURE_PENETRATION"},
    {0, nullptr}};

constexpr omu_PrimEnumRow pairRows[] = {
    {res_Pair_NONE, "NONE"},
    {res_Pair_REAL_AND_IMAGINARY, "REAL_AND_IMAGINARY"},
    {res_Pair_MAGNITUDE_AND_PHASE, "MAGNITUDE_AND_PHASE"},
    {0, nullptr}};

constexpr omu_PrimEnumRow complexDisplayRows[] = {
    {res_ComplexDisplay_REAL, "REAL"},
    {res_ComplexDisplay_IMAGINARY, "IMAGINARY"},
    {res_ComplexDisplay_COMPLEX_MAGNITUDE, "COMPLEX_MAGNITUDE"},
    {res_ComplexDisplay_COMPLEX_PHASE, "COMPLEX_PHASE"},
    {res_ComplexDisplay_COMPLEX_VAL_AT_ANGLE, "COMPLEX_VAL_AT_ANGLE"},
    {res_ComplexDisplay_COMPLEX_ENVELOPE_MIN, "COMPLEX_ENVELOPE_MIN"},
    {res_ComplexDisplay_COMPLEX_ENVELOPE_MAX, "COMPLEX_ENVELOPE_MAX"},
    {res_ComplexDisplay_COMPLEX_ENVELOPE_MAX_ABS, "COMPLEX_ENVELOPE_MAX_ABS"},
    {0, nullptr}};

constexpr omu_PrimEnumRow sectionResultsRows[] = {
    {res_SectionResults_USE_BOTTOM, "USE_BOTTOM"},
    {res_SectionResults_USE_TOP, "USE_TOP"},
    {res_SectionResults_USE_BOTTOM_AND_TOP, "USE_BOTTOM_AND_TOP"},
    {res_SectionResults_USE_ENVELOPE, "USE_ENVELOPE"},
    {0, nullptr}};

// clang-format on

} // namespace

omu_PrimEnumRow const * omu_PrimEnumRows(res_OutputPositionEnm) {
    return outputPositionRows;
}
omu_PrimEnumRow const * omu_PrimEnumRows(res_DataTypeEnm) {
    return dataTypeRows;
}
omu_PrimEnumRow const * omu_PrimEnumRows(res_MatrixTypeEnm) {
    return matrixTypeRows;
}
omu_PrimEnumRow const * omu_PrimEnumRows(res_CoordSystemEnm) {
    return coordSystemRows;
}
omu_PrimEnumRow const * omu_PrimEnumRows(res_ComponentEnm) {
    return componentRows;
}
omu_PrimEnumRow const * omu_PrimEnumRows(res_InvariantEnm) {
    return invariantRows;
}
omu_PrimEnumRow const * omu_PrimEnumRows(res_FieldCompletenessEnm) {
    return fieldCompletenessRows;
}
omu_PrimEnumRow const * omu_PrimEnumRows(res_ClampTypeEnm) {
    return clampTypeRows;
}
omu_PrimEnumRow const * omu_PrimEnumRows(res_StorageTypeEnm) {
    return storageTypeRows;
}
omu_PrimEnumRow const * omu_PrimEnumRows(res_LoadBCTypeEnm) {
    return loadBCTypeRows;
}
omu_PrimEnumRow const * omu_PrimEnumRows(res_LoadDescriptorEnm) {
    return loadDescriptorRows;
}
omu_PrimEnumRow const * omu_PrimEnumRows(res_PairEnm) {
    return pairRows;
}
omu_PrimEnumRow const * omu_PrimEnumRows(res_ComplexDisplayEnm) {
    return complexDisplayRows;
}
omu_PrimEnumRow const * omu_PrimEnumRows(res_SectionResultsEnm) {
    return sectionResultsRows;
}

template class omu_PrimEnum<res_OutputPositionEnm, 1>;
template class omu_PrimEnum<res_DataTypeEnm, 1>;
template class omu_PrimEnum<res_MatrixTypeEnm, 1>;
template class omu_PrimEnum<res_CoordSystemEnm, 1>;
template class omu_PrimEnum<res_ComponentEnm, 1>;
template class omu_PrimEnum<res_InvariantEnm, 1>;
template class omu_PrimEnum<res_FieldCompletenessEnm, 1>;
template class omu_PrimEnum<res_ClampTypeEnm, 1>;
template class omu_PrimEnum<res_StorageTypeEnm, 1>;
template class omu_PrimEnum<res_LoadBCTypeEnm, 1>;
template class omu_PrimEnum<res_LoadDescriptorEnm, 1>;
template class omu_PrimEnum<res_PairEnm, 1>;
template class omu_PrimEnum<res_ComplexDisplayEnm, 1>;
template class omu_PrimEnum<res_SectionResultsEnm, 1>;
