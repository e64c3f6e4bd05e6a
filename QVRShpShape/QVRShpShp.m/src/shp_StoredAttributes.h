#ifndef shp_StoredAttributes_h
#define shp_StoredAttributes_h

#include "cls_ReadVisitor.h"
#include "cls_WriteVisitor.h"
#include "shp_PrimEnums.h"

// What the stored classes of this folder share. Each names its attributes once, as handles in the order of writing,
// which is also the order of its fields: a read constructor that initialises them one by one reads in that order.

/// `reader`, once it is known to stand on an object of that class.
inline cls_ReadVisitor const & shp_startRead(cls_ReadVisitor const & reader, unsigned int classNumber) {
    reader.StartRead(classNumber);
    return reader;
}

/// An enumerator from its stored name. Any other text, and none, raises nex_CmdException<atr_String, 2>.
template <class E> E shp_readEnum(cls_ReadVisitor const & reader, cls_FieldHandle const & field) {
    return omu_PrimEnum<E, 1>(reader.Read(field, cow_String())).value;
}

/// Writes an enumerator as its name. One without a name raises nex_CmdException<atr_String, 2>.
template <class E> void shp_writeEnum(cls_WriteVisitor const & writer, cls_FieldHandle const & field, E value) {
    writer.Write(field, omu_PrimEnum<E, 1>(value).AsString(0));
}

/// A stored text, empty when there is none.
inline atr_String shp_readText(cls_ReadVisitor const & reader, cls_FieldHandle const & field) {
    atr_String text;
    reader.Read(text, field, atr_String());
    return text;
}

/// Deletes a holder of a `T` that goes as a holder of an int.
template <class T, class Policy> void shp_deleteHolder(cow_COW<int, cow_Direct<int>> * holder) {
    delete reinterpret_cast<cow_COW<T, Policy> *>(holder);
}

#endif
