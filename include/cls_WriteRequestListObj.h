#ifndef cls_WriteRequestListObj_h
#define cls_WriteRequestListObj_h

#include "QVRShpCore_Export.h"

class cls_WriteVisitor;

/// The request to add one element to a list that is being written. The element goes through a cls_WriteVisitor on it:
///
///     cls_WriteRequestListObj const request(listWriter);
///     element.DBWrite(cls_WriteVisitor(request));
class QVRSHPCORE_API cls_WriteRequestListObj {
public:
    /// `list` has started the list, and must outlive the request.
    explicit cls_WriteRequestListObj(cls_WriteVisitor const & list) noexcept : listWriter(&list) {}

    /// The visitor that has started the list.
    cls_WriteVisitor const & List() const noexcept { return *listWriter; }

private:
    cls_WriteVisitor const * listWriter;
};

#endif
