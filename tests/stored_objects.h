#ifndef stored_objects_h
#define stored_objects_h

// Objects in archives: stored, sent through bytes, read back by their class number alone, and shown as text; and two to
// begin with.

#include "cls_MemoryStore.h"
#include "cls_MetadataRegistrar.h"
#include "cls_ReadVisitor.h"
#include "cls_WriteVisitor.h"
#include "nex_CommandException.h"
#include "shp_AnalyticRigidSurfaceData.h"
#include "shp_AnalyticSurface.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <charconv>
#include <initializer_list>
#include <limits>
#include <string>
#include <utility>
#include <vector>

inline cls_MetadataRegistrar & registrar() {
    return omi_Singleton<cls_MetadataRegistrar>::Instance();
}

template <class T> cls_MemoryStore stored(T const & object) {
    cls_MemoryStore store;
    object.DBWrite(cls_WriteVisitor(store));
    if constexpr (requires { object.DynTypeId(); }) {
        EXPECT_EQ(object.DynTypeId(), store[0].classNumber);
    }
    return store;
}

/// Everything about a stored object, its identities included.
template <class T> cls_MemoryStore::ByteArray bytesOf(T const & object) {
    return stored(object).Bytes();
}

inline cls_MemoryStore fromBytes(cls_MemoryStore::ByteArray const & bytes) {
    return cls_MemoryStore(bytes.data(), bytes.size());
}

/// Some object, known by its class number alone.
class AnyObject {
public:
    explicit AnyObject(cls_ReadVisitor reader)
        : object(registrar().Construct(reader)), metadata(registrar().Find(reader.GetTypeNumber())) {}
    ~AnyObject() { metadata->Delete(object); }
    AnyObject(AnyObject const &) = delete;
    AnyObject & operator=(AnyObject const &) = delete;

    void DBWrite(cls_WriteVisitor const & writer) const { metadata->DBWrite(object, writer); }
    template <class T> T const & As() const { return *static_cast<T const *>(object); }

private:
    void * object;
    cls_ClassMetadata const * metadata;
};

/// Writes an archive as text: `Class#2(attribute=value ...)`. Parts of a base class and elements of a list have no
/// name. Identities are numbered as they appear; a null one is left out. Doubles have a point, texts have quotes.
class ArchiveText {
public:
    explicit ArchiveText(cls_MemoryStore const & archive) : store(archive) {
        for (int i = 0; i < store.Length(); ++i)
            add(store[i]);
    }

    std::string text;

private:
    void add(cls_MemoryStore::Object const & object) {
        text += registrar().Find(object.classNumber)->Name().CStr();
        if (!object.uid.IsNull()) {
            auto const known = std::find(identities.begin(), identities.end(), object.uid);
            text += '#' + std::to_string(known - identities.begin());
            if (known == identities.end())
                identities.push_back(object.uid);
        }
        text += '(';
        char const * separator = "";
        for (cls_MemoryStore::Attribute const & each : object.attributes) {
            text += std::exchange(separator, " ");
            if (!each.name.Empty())
                text += each.name.CStr() + std::string("=");
            std::visit([this](auto const & value) { add(value); }, each.value);
        }
        text += ')';
    }
    void add(cls_MemoryStore::ObjectIndex part) { add(store.At(part)); }
    void add(cow_String const & value) { text += '"' + std::string(value.CStr()) + '"'; }
    void add(int value) { text += std::to_string(value); }
    void add(double value) {
        char digits[40];
        std::string const exact(digits, std::to_chars(std::begin(digits), std::end(digits), value).ptr);
        text += exact.find_first_not_of("-0123456789") == std::string::npos ? exact + ".0" : exact;
    }

    cls_MemoryStore const & store;
    std::vector<cls_Uid> identities;
};

template <class T> std::string textOf(T const & object) {
    return ArchiveText(stored(object)).text;
}

/// Code, message, place and line of what `work` raises; the code is that of the class.
template <class Work> std::string raisedBy(Work work) {
    try {
        work();
    } catch (nex_CommandException const & raised) {
        return std::to_string(raised.GetCode()) + ": " + raised.DeveloperReport(0).CStr();
    }
    return "nothing";
}

inline shp_AnalyticSurfaceSegment segment(shp_AnalyticSurfaceSegment::TypeEnm type,
                                          std::initializer_list<g3d_Point> points) {
    shp_AnalyticSurfaceSegment made;
    made.type = type;
    for (g3d_Point const & point : points)
        made.data.Append(point);
    return made;
}

/// Surfaces with identities in some of their parts.
inline shp_AnalyticSurface surface() {
    shp_AnalyticSurface made;
    made.type = shp_AnalyticSurface::REVOLUTION;
    made.filletRadius = 0.1;
    made.profile.Append(segment(shp_AnalyticSurfaceSegment::START, {g3d_Point(1, 2, 3)}));
    made.profile.Append(segment(shp_AnalyticSurfaceSegment::PARABOLA, {g3d_Point(7, 8, 9), g3d_Point(4, 5, 6)}));
    made.localCoordData.Append(g3d_Point(0, 0, 1));
    made.name = "punch";
    for (cls_Uid * const uid : {&made.uid, &made.profile.Get(0).uid, &made.profile.Get(1).data.uid})
        uid->NewUid();
    return made;
}
inline shp_AnalyticRigidSurfaceData olderSurface() {
    shp_AnalyticRigidSurfaceData made(shp_AnalyticRigidSurf_ExtSegs);
    made.meshIndex = std::numeric_limits<int>::min();
    made.classIndex = 7;
    made.elemIndex = 8;
    made.surfaceName = "die";
    made.localCoordDef.Append(g3d_Vector(4, 5, 6));
    made.dataPairList.Append(shp_SuppDataPair(g3d_Point(1, 2, 3), shp_SuppDataPair_Circl));
    made.dataPairList.Get(0).uid = made.uid; // which is of another class
    return made;
}

#endif
