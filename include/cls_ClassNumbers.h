#ifndef cls_ClassNumbers_h
#define cls_ClassNumbers_h

/// Numbers of the foundation's own persistent classes: the component in the high 16 bits, the row in the low 16.
/// Archives hold them: a number is never given to another class.
enum cls_ClassNumber : unsigned int {
    cls_ClassNumber_ROOT = 1, ///< the base that the description of a class without a persistent base names

    cls_ClassNumber_nex_Exception = 0x1f0002,
    cls_ClassNumber_nex_CommandException = 0x1f0003,

    cls_ClassNumber_LIST = 0x230001, ///< every persistent list
    cls_ClassNumber_uti_Coord3D = 0x230002,
    cls_ClassNumber_uti_CoordCont3D = 0x230003,
    cls_ClassNumber_g3d_Point = 0x230004,
    cls_ClassNumber_g3d_Vector = 0x230005,
    cls_ClassNumber_gsl_Point = 0x230006,
    cls_ClassNumber_omu_Primitive = 0x230007,
    cls_ClassNumber_omu_PrimSequence = 0x230008,
    cls_ClassNumber_omu_PrimTuple = 0x230009,
    cls_ClassNumber_omu_PrimEnumBase = 0x23000a,
};

#endif
