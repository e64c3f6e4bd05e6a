#ifndef uti_CoordCont3D_h
#define uti_CoordCont3D_h

#include "mem_AllocationOperators.h"
#include "mem_Allocator.h"
#include "uti_Coord3D.h"

#include <cstddef>
#include <vector>

/// A growing array of coordinates, indexed from 0. Entries that do not exist, before the start or past the end, read as
/// (0, 0, 0).
class QVRSHPCORE_API uti_CoordCont3D : public mem_AllocationOperators {
public:
    uti_CoordCont3D() = default; ///< no entry
    explicit uti_CoordCont3D(cls_ReadVisitor const & reader);

    /// How many entries exist.
    int Length() const { return static_cast<int>(entries.size()); }

    /// An entry, as a copy.
    uti_Coord3D operator[](int index) const {
        Entry const entry = exists(index) ? entries[slot(index)] : Entry();
        return uti_Coord3D(entry.x, entry.y, entry.z);
    }

    /// The same as three numbers.
    void GetCoord(int index, float & x, float & y, float & z) const {
        uti_Coord3D const coord = (*this)[index];
        x = coord[0];
        y = coord[1];
        z = coord[2];
    }

    /// Sets an entry. Past the end the container grows to reach it; before the start nothing is set.
    void SetCoord(int index, uti_Coord3D const & coord) { SetCoord(index, coord[0], coord[1], coord[2]); }
    void SetCoord(int index, float x, float y, float z) {
        if (index < 0)
            return;
        if (!exists(index))
            entries.resize(slot(index) + 1);
        entries[slot(index)] = {x, y, z};
    }

    /// Makes at least `count` entries exist; new ones are (0, 0, 0). Never shrinks.
    void Grow(int count) {
        if (count > Length())
            entries.resize(slot(count));
    }

    static unsigned int TypeId();
    unsigned int DynTypeId() const { return TypeId(); }
    void DBWrite(cls_WriteVisitor const & writer) const;
    static void InitializeMetadata(cls_ClassRegistrar & registrar);

private:
    /// What is kept of a coordinate: its numbers alone, side by side.
    struct Entry {
        float x = 0, y = 0, z = 0;
    };

    static std::size_t slot(int index) { return static_cast<std::size_t>(index); }
    /// An index before the start is a slot far behind the end. Bytes are compared: to count entries wants a division.
    bool exists(int index) const { return slot(index) * sizeof(Entry) < entries.size() * sizeof(Entry); }
    static_assert(sizeof(std::size_t) > sizeof(int), "a slot before the start has a place in memory");

    std::vector<Entry, mem_Allocator<Entry>> entries;
};

#endif
