#ifndef shp_TableSource_h
#define shp_TableSource_h

#include "shp_DecisionList.h"
#include "shp_Options.h"

/// The result of a row in a table choice: a table, or another choice that knows more (that of a family). Without either
/// there is no table.
class shp_TableSource {
public:
    using Getter = float const * (*)(shp_Options const &);
    using FaceGetter = float const * (*)(shp_Options const &, int face);

    constexpr shp_TableSource() = default;
    constexpr shp_TableSource(Getter choice) : getter(choice) {}
    constexpr shp_TableSource(FaceGetter choice) : faceGetter(choice) {}
    constexpr shp_TableSource(float const * entries) : table(entries) {}
    template <int Rows> constexpr shp_TableSource(float const (&rows)[Rows][3]) : table(rows[0]) {}
    /// A table that the compiler has filled: shp_Points, shp_WeightTable.
    template <class Table>
    requires requires(Table const & filled) { filled.data(); }
    constexpr shp_TableSource(Table const & filled) : table(filled.data()) {}

    float const * find(shp_Options const & options, int face = shp_any) const {
        if (getter)
            return getter(options);
        return faceGetter ? faceGetter(options, face) : table;
    }

private:
    float const * table = nullptr;
    Getter getter = nullptr;
    FaceGetter faceGetter = nullptr;
};

/// A row of a choice among tables.
using shp_TableChoice = shp_Choice<shp_TableSource>;

#endif
