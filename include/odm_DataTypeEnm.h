#ifndef odm_DataTypeEnm_h
#define odm_DataTypeEnm_h

/// The mathematical type of a result as output databases store it, a bit each; 0 is none.
enum odm_DataTypeEnm : int {
    odm_DataType_SCALAR = 1,
    odm_DataType_VECTOR = 2,
    odm_DataType_QUATERNION = 4,
    odm_DataType_TENSOR = 8
};

#endif
