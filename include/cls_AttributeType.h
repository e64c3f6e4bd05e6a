#ifndef cls_AttributeType_h
#define cls_AttributeType_h

#include "QVRShpCore_Export.h"

/// What an attribute of a persistent class is. The numbers are those of stored descriptions.
enum QVRSHPCORE_API cls_AttributeType : int {
    cls_AttributeType_INT = 5,
    cls_AttributeType_DOUBLE = 10,
    cls_AttributeType_STRING = 11,
    cls_AttributeType_ENUM = 14,  ///< an enumeration, stored as its name: a string
    cls_AttributeType_OBJECT = 15 ///< an embedded object or list
};

#endif
