// Any key bits through every table choice. What a getter hands out is not followed: a table may be too short for a key
// that is not in the catalogue.

#include "input.h"

#include "shp_ConnectivityTables.h"
#include "shp_HexInterpTables.h"
#include "shp_InterpolationTables.h"
#include "shp_KeyBit.h"
#include "shp_PrismInterpTables.h"
#include "shp_QuadInterpTables.h"
#include "shp_TetraInterpTables.h"
#include "shp_TriInterpTables.h"

#include <algorithm>
#include <cstring>
#include <initializer_list>

namespace {

/// What the getters handed out, function pointers too, as bytes that can be compared.
class Answers {
public:
    template <class Answer> void add(Answer answer) {
        static_assert(sizeof(Answer) <= sizeof(std::uint64_t));
        require(count < capacity, "all answers are kept", "");
        std::memcpy(&kept[count++], &answer, sizeof answer);
    }
    bool operator==(Answers const & other) const {
        return count == other.count && std::equal(kept, kept + count, other.kept);
    }

private:
    static constexpr int capacity = 96;
    int count = 0;
    std::uint64_t kept[capacity] = {};
};

/// Sparse keys, a byte per bit number, and dense ones, all 128 bits as they come.
LongKey anyKey(Input & input) {
    LongKey key;
    std::uint8_t const kind = input.byte();
    if (kind % 4 != 0) {
        for (int i = 0; i < kind % 16; ++i) {
            unsigned int const bit = input.byte();
            key.setBits(1, &bit);
        }
    } else {
        for (unsigned int bit = 0; bit < LongKey::numBits; bit += 8)
            for (unsigned int i = 0, byte = input.byte(); i < 8; ++i)
                if ((byte >> i & 1) != 0) {
                    unsigned int const number = bit + i;
                    key.setBits(1, &number);
                }
    }
    return key;
}

/// The isoparametric directions of a shape family; a line ignores which one is asked for.
int directionsOf(int shape) {
    return shape == shp_keyTri || shape == shp_keyQuad ? 2 : 3;
}

void askConnectivity(shp_Options const & options, Answers & answers) {
    using Tables = shp_ConnectivityTables;
    for (auto getter :
         {Tables::getNdPerEdgTblPtr, Tables::getEdgPerFcTblPtr, Tables::getNdPerFcTblPtr, Tables::getIpPerFcTblPtr,
          Tables::getFaceConnTblPtr, Tables::getEdgeConnTblPtr, Tables::getRevConnTblPtr, Tables::getEdgeMapTblPtr})
        answers.add(getter(options));

    int numTriangles = -1;
    int const * const triangles = Tables::getFaceTriTblPtr(options, numTriangles);
    require((triangles != nullptr) == (numTriangles > 0) && numTriangles >= 0,
            "triangles are counted exactly where there are some", "");
    answers.add(triangles);
    answers.add(numTriangles);

    require(Tables::getFaceTanFuncPtr(options) != nullptr, "every key has a tangent function", "");
    answers.add(Tables::getFaceTanFuncPtr(options));
}

/// The getters that every class has.
template <class Tables> void askFamily(shp_Options const & options, int directions, Answers & answers) {
    for (auto getter : {Tables::getNdLocTblPtr, Tables::getIntPntLocTblPtr, Tables::getNdWghtTblPtr})
        answers.add(getter(options));
    answers.add(Tables::getBodyOpPtr(options));

    shp_ShapeFunction const * const functions = Tables::getNdFuncPtrTblPtr(options);
    answers.add(functions);
    for (int direction = 0; direction < directions; ++direction) {
        auto const * const slopes = Tables::getdUdGHRFuncPtrTblPtr(options, direction);
        require(!slopes || functions, "there are no derivatives without functions", "");
        answers.add(slopes);
    }
}

template <class Tables> void askSolid(shp_Options const & options, int face, Answers & answers) {
    askFamily<Tables>(options, 3, answers);
    answers.add(Tables::getFcWghtTblPtr(options));
    answers.add(Tables::getFacialNdWghtTblPtr(options, face));
}

void askInterpolation(shp_Options const & options, int face, Answers & answers) {
    using Tables = shp_InterpolationTables;
    askFamily<Tables>(options, directionsOf(options.Shape()), answers);
    for (auto getter : {Tables::getCenterLocTblPtr, Tables::getFcCenterLocTblPtr, Tables::getFcWghtTblPtr,
                        Tables::getCylCentroidWghtTblPtr})
        answers.add(getter(options));
    answers.add(Tables::getFacialNdWghtTblPtr(options, face));
}

Answers askAll(LongKey const & key, int face) {
    shp_Options const options(key);
    Answers answers;
    askConnectivity(options, answers);
    askInterpolation(options, face, answers);
    askSolid<shp_HexInterpTables>(options, face, answers);
    askSolid<shp_PrismInterpTables>(options, face, answers);
    askSolid<shp_TetraInterpTables>(options, face, answers);
    answers.add(shp_HexInterpTables::getCylCentroidWghtTblPtr(options));
    answers.add(shp_PrismInterpTables::getCylCentroidWghtTblPtr(options));
    askFamily<shp_QuadInterpTables>(options, 2, answers);
    askFamily<shp_TriInterpTables>(options, 2, answers);
    answers.add(shp_QuadInterpTables::getFacialNdWghtTblPtr(options, face));
    return answers;
}

template <class Family> void checkFamily(shp_Options const & options, bool isChosen) {
    using Tables = shp_InterpolationTables;
    require(!isChosen || (Tables::getNdLocTblPtr(options) == Family::getNdLocTblPtr(options) &&
                          Tables::getNdFuncPtrTblPtr(options) == Family::getNdFuncPtrTblPtr(options) &&
                          Tables::getdUdGHRFuncPtrTblPtr(options, 1) == Family::getdUdGHRFuncPtrTblPtr(options, 1) &&
                          Tables::getBodyOpPtr(options) == Family::getBodyOpPtr(options)),
            "a family's own class speaks for it", "");
}

/// A key without a shape has no nodes and no functions, and each shape's own class speaks for it.
void checkChoiceOfFamily(shp_Options const & options) {
    using Tables = shp_InterpolationTables;
    int const shape = options.Shape();
    require(shape != 0 || (!Tables::getNdLocTblPtr(options) && !Tables::getNdFuncPtrTblPtr(options) &&
                           !Tables::getBodyOpPtr(options) && !shp_ConnectivityTables::getFaceConnTblPtr(options)),
            "without a shape there are no tables", "");
    checkFamily<shp_TriInterpTables>(options, shape == shp_keyTri);
    checkFamily<shp_QuadInterpTables>(options, shape == shp_keyQuad);
    checkFamily<shp_TetraInterpTables>(options, shape == shp_keyTetra);
    checkFamily<shp_HexInterpTables>(options, shape == shp_keyHex);
    checkFamily<shp_PrismInterpTables>(options, shape == shp_keyPrism);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const * data, std::size_t size) {
    Input input(data, size);
    LongKey const key = anyKey(input);
    int const face = static_cast<std::int8_t>(input.byte());
    Answers const answers = askAll(key, face);
    if (input.byte() % 16 == 0)
        require(answers == askAll(key, face), "a key always chooses the same tables", "");
    checkChoiceOfFamily(shp_Options(key));
    return 0;
}
