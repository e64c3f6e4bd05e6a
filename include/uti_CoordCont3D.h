#ifndef uti_CoordCont3D_h
#define uti_CoordCont3D_h

#include "mem_Allocator.h"
#include "uti_Coord3D.h"

#include <cstddef>
#include <vector>

/// A growing array of coordinates, indexed from 0. Entries that do not exist, before the start or past the end, read as
/// (0, 0, 0).
class uti_CoordCont3D {
public:
    /// How many entries exist.
    int Length() const { return static_cast<int>(entries.size()); }

    uti_Coord3D operator[](int index) const { return exists(index) ? entries[slot(index)] : uti_Coord3D(); }

    void GetCoord(int index, float & x, float & y, float & z) const {
        uti_Coord3D const coord = (*this)[index];
        x = coord[0];
        y = coord[1];
        z = coord[2];
    }

    /// Sets an entry. Past the end the container grows to reach it; before the start nothing is set.
    void SetCoord(int index, uti_Coord3D const & coord) {
        if (index < 0)
            return;
        uti_Coord3D const value = coord;
        if (!exists(index))
            entries.resize(slot(index) + 1);
        entries[slot(index)] = value;
    }
    void SetCoord(int index, float x, float y, float z) { SetCoord(index, uti_Coord3D(x, y, z)); }

    /// Makes at least `count` entries exist; new ones are (0, 0, 0). Never shrinks.
    void Grow(int count) {
        if (count > Length())
            entries.resize(slot(count));
    }

private:
    static std::size_t slot(int index) { return static_cast<std::size_t>(index); }
    /// An index before the start is a slot far behind the end.
    bool exists(int index) const { return slot(index) < entries.size(); }

    std::vector<uti_Coord3D, mem_Allocator<uti_Coord3D>> entries;
};

#endif
