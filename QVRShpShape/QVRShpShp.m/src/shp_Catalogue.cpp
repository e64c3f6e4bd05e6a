#include "shp_Catalogue.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <string_view>

namespace {

/// The key bits of a row beyond family, counts and space.
struct Flags {
    static constexpr std::size_t capacity = 6;

    template <class... Bit> constexpr Flags(Bit... bit) : count(sizeof...(bit)), bits{bit...} {
        static_assert(sizeof...(bit) <= capacity);
    }
    constexpr shp_KeyBit const * begin() const { return bits; }
    constexpr shp_KeyBit const * end() const { return bits + count; }

    std::size_t count;
    shp_KeyBit bits[capacity];
};

/// All labels that share a key.
struct Row {
    shp_KeyBit nodes;
    shp_KeyBit points;
    shp_KeyBit space;
    Flags flags;
    std::string_view labels; ///< separated by single spaces
    int modes = 0;           ///< not 0: the labels are the bases of labels that end in a mode digit, 1 to `modes`
};

// The element types that the library knows. A row is a key and the labels that have it: nodes, integration points,
// space of the model, every other bit of the key, the labels; behind them, where the labels end in a mode digit, the
// number of modes. Neither labels nor keys may be regularised: callers' files hold them, the unlikely ones included.
// The key is the truth where a digit in a name says something else.

// clang-format off
// ARSC and AC3D8 (in rowsHex) end in a bit number 0 that means nothing: stored keys have it.
constexpr Row rowsARS[] = {
    {shp_keyNodes1, shp_keyIntPts1, shp_key2D, {shp_keyAxisymmetric, shp_keyArsSegments, shp_keySurface}, "ARSSS"},
    {shp_keyNodes1, shp_keyIntPts1, shp_key2D, {shp_keyArsSegments, shp_keySurface, shp_keyPlane}, "ARSSE"},
    {shp_keyNodes1, shp_keyIntPts1, shp_key3D, {shp_keyArsCylinder, shp_keySurface, shp_keyPlane, shp_keyZero}, "ARSC"},
    {shp_keyNodes1, shp_keyIntPts1, shp_key3D, {shp_keyArsRevolved, shp_keySurface}, "ARSR"},
};

// DCOUP2D, IDCOUP2D and IDCOUP2P are three-dimensional in spite of their names. CONN2D2G and CONN3D2G are single nodes.
constexpr Row rowsPoint[] = {
    {shp_keyNodes1, shp_keyIntPts1, shp_key2D, {shp_keyInternal, shp_keyClassConnectorNode}, "CONN2D2G"},
    {shp_keyNodes1, shp_keyIntPts1, shp_key3D, {shp_keyInternal, shp_keyClassConnectorNode}, "CONN3D2G"},
    {shp_keyNodes1, shp_keyIntPts1, shp_key2D, {shp_keyInteraction, shp_keyPlane}, "IRSXX12"},
    {shp_keyNodes1, shp_keyIntPts1, shp_key3D, {shp_keyInteraction}, "IRSXX13 ISP1 ISP1T ITT31 ASI1"},
    {shp_keyNodes1, shp_keyIntPts1, shp_key3D, {shp_keyInteraction, shp_keyClassGap}, "MASS C3D1HMAT C3D1MAT"},
    {shp_keyNodes1, shp_keyIntPts1, shp_key3D, {shp_keyInteraction, shp_keyClassPointC}, "PC3D"},
    {shp_keyNodes1, shp_keyIntPts1, shp_key3D, {shp_keyInteraction, shp_keyClassPointD}, "PD3D"},
    {shp_keyNodes1, shp_keyIntPts1, shp_key3D, {shp_keyInteraction, shp_keyClassCoupling},
     "DCOUP2D DCOUP3D IDCOUP2D IDCOUP2P IDCOUP3D IDCOUP3P IDCOUP3U IDCOUP3R"},
    {shp_keyNodes1, shp_keyIntPts1, shp_key3D, {shp_keyInteraction, shp_keyClassSpring}, "ROTARYI"},
    {shp_keyNodes1, shp_keyIntPts1, shp_key3D, {shp_keyInteraction, shp_keyClassDashpot}, "HEATCAP"},
    {shp_keyNodes1, shp_keyIntPts1, shp_key3D, {shp_keyInteraction, shp_keyClassSpring1}, "SPRING1"},
    {shp_keyNodes1, shp_keyIntPts1, shp_key3D, {shp_keyInteraction, shp_keyClassElbow}, "DASHPOT1"},
    {shp_keyNodes1, shp_keyIntPts1, shp_key2D, {shp_keyInteraction}, "ITT21"},
    {shp_keyNodes1, shp_keyIntPts1, shp_key2D, {shp_keyInteraction, shp_keyClassJoint}, "DRAG2D"},
    {shp_keyNodes1, shp_keyIntPts1, shp_key3D, {shp_keyInternal, shp_keyInteraction, shp_keyClassConnector},
     "SPOTWELD"},
    {shp_keyNodes1, shp_keyIntPts1, shp_key3D, {shp_keyInternal, shp_keySurface, shp_keyInteraction}, "INTRNL1 PSURF3"},
    {shp_keyNodes1, shp_keyIntPts1, shp_key2D, {shp_keyInternal, shp_keySurface, shp_keyInteraction}, "PSURF1"},
    {shp_keyNodes1, shp_keyIntPts1, shp_key2D, {shp_keyAxisymmetric, shp_keyInternal, shp_keySurface,
      shp_keyInteraction}, "PSURF2"},
    {shp_keyNodes1, shp_keyIntPts1, shp_key2D, {shp_keyRigid, shp_keyInternal, shp_keySurface, shp_keyNoResults,
      shp_keyInteraction, shp_keyClassBeam}, "RNODE2D"},
    {shp_keyNodes1, shp_keyIntPts1, shp_key3D, {shp_keyRigid, shp_keyInternal, shp_keySurface, shp_keyNoResults,
      shp_keyInteraction, shp_keyClassBeam}, "RNODE3D"},
    {shp_keyNodes1, shp_keyIntPts1, shp_key2D, {shp_keyInternal, shp_keyClassPipe}, "ALE2D"},
    {shp_keyNodes1, shp_keyIntPts1, shp_key2D, {shp_keyAxisymmetric, shp_keyInternal, shp_keyClassPipe}, "ALEAXI"},
    {shp_keyNodes1, shp_keyIntPts1, shp_key3D, {shp_keyInternal, shp_keyClassPipe}, "ALE3D"},
};

constexpr Row rowsLine[] = {
    {shp_keyNodes2, shp_keyIntPts2, shp_key3D, {}, "AC1D2"},
    {shp_keyNodes2, shp_keyIntPts2, shp_key2D, {shp_keyLineInPlane, shp_keyInfinite, shp_keyPlane}, "ACIN2D2"},
    {shp_keyNodes3, shp_keyIntPts3, shp_key2D, {shp_keyLineInPlane, shp_keyInfinite, shp_keyPlane}, "ACIN2D3"},
    {shp_keyNodes2, shp_keyIntPts2, shp_key2D, {shp_keyLineInPlane, shp_keyAxisymmetric, shp_keyInfinite}, "ACINAX2"},
    {shp_keyNodes3, shp_keyIntPts3, shp_key2D, {shp_keyLineInPlane, shp_keyAxisymmetric, shp_keyInfinite}, "ACINAX3"},
    {shp_keyNodes2, shp_keyIntPts2, shp_key3D, {shp_keyNodalIntegration}, "DC1D2 DC1D2E"},
    {shp_keyNodes2, shp_keyIntPts1, shp_key3D, {},
     "DCC1D2 DCC1D2D T3D2 T3D2E T3D2H T3D2T FLINK FP3D2 FPC3D2 FP3D2C FPC3D2C USI2SOR"},
    {shp_keyNodes2, shp_keyIntPts1, shp_key2D, {shp_keyClassConnector}, "CONN2D2"},
    {shp_keyNodes2, shp_keyIntPts1, shp_key3D, {shp_keyClassConnector}, "CONN3D2"},
    {shp_keyNodes3, shp_keyIntPts1, shp_key2D, {shp_keyClassConnector}, "CONN2D3"},
    {shp_keyNodes3, shp_keyIntPts1, shp_key3D, {shp_keyClassConnector}, "CONN3D3"},
    {shp_keyNodes2, shp_keyIntPts1, shp_key2D, {shp_keyAxisymmetric}, "DCCAX2 DCCAX2D"},
    {shp_keyNodes3, shp_keyIntPts3, shp_key3D, {}, "AC1D3 DC1D3 DC1D3E"},
    {shp_keyNodes2, shp_keyIntPts1, shp_key2D, {shp_keyLineInPlane, shp_keyAxisymmetric},
     "SAX1 MAX1 FAX2 SFMAX1 SFMAX1P SFMAX1PT SFMAX1T SAXA1N"},
    {shp_keyNodes2, shp_keyIntPts2, shp_key2D, {shp_keyLineInPlane, shp_keyAxisymmetric, shp_keyNodalIntegration},
     "DSAX1"},
    {shp_keyNodes2, shp_keyIntPts1, shp_key2D, {shp_keyLineInPlane, shp_keyAxisymmetric, shp_keyTwisted},
     "MGAX1 SFMGAX1"},
    {shp_keyNodes3, shp_keyIntPts2, shp_key2D, {shp_keyLineInPlane, shp_keyAxisymmetric},
     "SAX2 SAX2T MAX2 SFMAX2 SFMAX2P SFMAX2PT SFMAX2T"},
    {shp_keyNodes3, shp_keyIntPts3, shp_key2D, {shp_keyLineInPlane, shp_keyAxisymmetric}, "DSAX2"},
    {shp_keyNodes3, shp_keyIntPts2, shp_key2D, {shp_keyLineInPlane, shp_keyAxisymmetric, shp_keyTwisted},
     "MGAX2 SFMGAX2"},
    {shp_keyNodes2, shp_keyIntPts1, shp_key2D, {shp_keyClassBeam}, "B21 B21H"},
    {shp_keyNodes2, shp_keyIntPts3, shp_key2D, {shp_keyClassBeam}, "B21L B21LH B23 B23H"},
    {shp_keyNodes2, shp_keyIntPts1, shp_key2D, {shp_keyClassPipe}, "PIPE21 PIPE21H"},
    {shp_keyNodes2, shp_keyIntPts3, shp_key2D, {shp_keyFrame, shp_keyClassBeam}, "FRAME2D"},
    {shp_keyNodes2, shp_keyIntPts1, shp_key3D, {shp_keyClassBeam}, "B31 B31H B31OS B31OSH"},
    {shp_keyNodes2, shp_keyIntPts3, shp_key3D, {shp_keyClassBeam}, "B31LH B33 B33H B34"},
    {shp_keyNodes2, shp_keyIntPts1, shp_key3D, {shp_keyClassPipe}, "PIPE31 PIPE31H"},
    {shp_keyNodes2, shp_keyIntPts1, shp_key3D, {shp_keyClassElbow}, "ELBOW31 ELBOW31B ELBOW31C"},
    {shp_keyNodes2, shp_keyIntPts3, shp_key3D, {shp_keyFrame, shp_keyClassBeam}, "FRAME3D"},
    {shp_keyNodes3, shp_keyIntPts2, shp_key2D, {shp_keyClassBeam}, "B22 B22H"},
    {shp_keyNodes3, shp_keyIntPts2, shp_key2D, {shp_keyClassPipe}, "PIPE22 PIPE22H"},
    {shp_keyNodes3, shp_keyIntPts2, shp_key3D, {shp_keyClassBeam}, "B32 B32H B32OS B32OSH"},
    {shp_keyNodes3, shp_keyIntPts2, shp_key3D, {shp_keyClassPipe}, "PIPE32 PIPE32H"},
    {shp_keyNodes3, shp_keyIntPts2, shp_key3D, {shp_keyClassElbow}, "ELBOW32"},
    {shp_keyNodes2, shp_keyIntPts1, shp_key2D, {shp_keyLineInPlane},
     "T2D2 T2D2E T2D2H T2D2T F2D2 SFM2D2 SFM2D2P SFM2D2PT SFM2D2T"},
    {shp_keyNodes3, shp_keyIntPts2, shp_key2D, {shp_keyLineInPlane},
     "T2D3 T2D3E T2D3H T2D3T SFM2D3 SFM2D3P SFM2D3PT SFM2D3T"},
    {shp_keyNodes3, shp_keyIntPts2, shp_key3D, {}, "T3D3 T3D3E T3D3H T3D3T"},
    {shp_keyNodes2, shp_keyIntPts2, shp_key2D, {shp_keyNodalIntegration, shp_keyInteraction, shp_keyPlane},
     "ISL21 ISL21T IRSXX21 ASI2D2 ASI2"},
    {shp_keyNodes2, shp_keyIntPts2, shp_key2D, {shp_keyAxisymmetric, shp_keyNodalIntegration, shp_keyInteraction},
     "ISL21A ISL21AT IRS21A ASIAX2 ASI2A"},
    {shp_keyNodes2, shp_keyIntPts3, shp_key3D, {shp_keyNodalIntegration, shp_keyInteraction}, "ISL31 ISL31A"},
    {shp_keyNodes3, shp_keyIntPts3, shp_key2D, {shp_keyNodalIntegration, shp_keyInteraction, shp_keyPlane},
     "ISL22 ISL22T IRSXX22 ASI2D3 ASI3"},
    {shp_keyNodes3, shp_keyIntPts3, shp_key2D, {shp_keyAxisymmetric, shp_keyNodalIntegration, shp_keyInteraction},
     "ISL22A ISL22AT IRS22A ASIAX3 ASI3A"},
    {shp_keyNodes3, shp_keyIntPts3, shp_key3D, {shp_keyNodalIntegration, shp_keyInteraction}, "ISL32 ISL32A IRSXX32"},
    {shp_keyNodes2, shp_keyIntPts2, shp_key3D, {shp_keyNodalIntegration, shp_keyInteraction}, "IRSXX31"},
    {shp_keyNodes2, shp_keyIntPts1, shp_key2D, {shp_keyRigid, shp_keyNoResults, shp_keyInteraction, shp_keyPlane},
     "R2D2 RB2D2"},
    {shp_keyNodes2, shp_keyIntPts1, shp_key2D, {shp_keyAxisymmetric, shp_keyRigid, shp_keyNoResults,
      shp_keyInteraction}, "RAX2"},
    {shp_keyNodes2, shp_keyIntPts1, shp_key3D, {shp_keyRigid, shp_keyNoResults, shp_keyInteraction}, "RB3D2"},
    {shp_keyNodes2, shp_keyIntPts1, shp_key3D, {shp_keyInteraction, shp_keyClassSpring}, "SPRING2 SPRINGA"},
    {shp_keyNodes2, shp_keyIntPts1, shp_key3D, {shp_keyInteraction, shp_keyClassDashpot}, "DASHPOT2 DASHPOTA"},
    {shp_keyNodes2, shp_keyIntPts1, shp_key3D, {shp_keyInteraction, shp_keyClassGap},
     "GAPUNI DGAP GAPUNIT GAPCYL GAPSPHER"},
    {shp_keyNodes2, shp_keyIntPts1, shp_key3D, {shp_keyInteraction}, "ITSUNI ITSCYL DRAG3D"},
    {shp_keyNodes2, shp_keyIntPts1, shp_key2D, {shp_keyInteraction, shp_keyClassJoint}, "JOINT2D"},
    {shp_keyNodes2, shp_keyIntPts1, shp_key3D, {shp_keyInteraction, shp_keyClassJoint}, "JOINT3D JOINTC"},
    {shp_keyNodes2, shp_keyIntPts1, shp_key2D, {}, "FP2D2 FPC2D2 FP2D2C FPC2D2C"},
    {shp_keyNodes2, shp_keyIntPts1, shp_key2D, {shp_keyFluidpipeThermal}, "FP2D2T FPC2D2T FP2D2Q FPC2D2Q"},
    {shp_keyNodes2, shp_keyIntPts1, shp_key3D, {shp_keyFluidpipeThermal}, "FP3D2T FPC3D2T FP3D2Q FPC3D2Q"},
    {shp_keyNodes2, shp_keyIntPts1, shp_key2D, {shp_keyFluidpipeAnnulusThermal}, "FP2D2AT FPC2D2AT FP2D2AQ FPC2D2AQ"},
    {shp_keyNodes2, shp_keyIntPts1, shp_key3D, {shp_keyFluidpipeAnnulusThermal}, "FP3D2AT FPC3D2AT FP3D2AQ FPC3D2AQ"},
    {shp_keyNodes2, shp_keyIntPts1, shp_key3D, {shp_keyInternal, shp_keySurface, shp_keyInteraction}, "INTRNL2 LSURF3"},
    {shp_keyNodes2, shp_keyIntPts1, shp_key2D, {shp_keyAxisymmetric, shp_keyInternal, shp_keySurface,
      shp_keyInteraction}, "AXIINT2"},
    {shp_keyNodes3, shp_keyIntPts1, shp_key3D, {shp_keyInternal, shp_keySurface, shp_keyInteraction},
     "INTRNL3B LSURF6"},
    {shp_keyNodes2, shp_keyIntPts1, shp_key2D, {shp_keyInternal, shp_keySurface, shp_keyInteraction, shp_keyPlane,
      shp_keyClassCoupling}, "LSURF1"},
    {shp_keyNodes2, shp_keyIntPts1, shp_key2D, {shp_keyAxisymmetric, shp_keyInternal, shp_keySurface,
      shp_keyInteraction, shp_keyClassCoupling}, "LSURF2"},
    {shp_keyNodes3, shp_keyIntPts1, shp_key2D, {shp_keyInternal, shp_keySurface, shp_keyInteraction, shp_keyPlane,
      shp_keyClassCoupling}, "LSURF4"},
    {shp_keyNodes3, shp_keyIntPts1, shp_key2D, {shp_keyAxisymmetric, shp_keyInternal, shp_keySurface,
      shp_keyInteraction, shp_keyClassCoupling}, "LSURF5"},
    {shp_keyNodes2, shp_keyIntPts1, shp_key2D, {shp_keyGasket}, "GK2D2 GK2D2N"},
    {shp_keyNodes2, shp_keyIntPts1, shp_key3D, {shp_keyGasket}, "GK3D2 GK3D2N"},
    {shp_keyNodes2, shp_keyIntPts1, shp_key2D, {shp_keyGasket, shp_keyAxisymmetric}, "GKAX2 GKAX2N"},
    {shp_keyNodes3, shp_keyIntPts3, shp_key3D, {shp_keyNodalIntegration}, "LS3S"},
    {shp_keyNodes2, shp_keyIntPts1, shp_key2D, {shp_keyCaxa}, "SAXA1", 4},
    {shp_keyNodes3, shp_keyIntPts2, shp_key2D, {shp_keyCaxa}, "SAXA2", 4},
};

// CPEG6MT and CPEG6MHT go with CPEG6, not with CPEG6M: they lack shp_keyModified. WARP2D3 and the like are planar and
// three-dimensional.
constexpr Row rowsTri[] = {
    {shp_keyNodes3, shp_keyIntPts3, shp_key2D, {shp_keyPlane}, "AC2D3"},
    {shp_keyNodes3, shp_keyIntPts3, shp_key2D, {shp_keyAxisymmetric, shp_keyNodalIntegration}, "ACAX3 DCAX3 DCAX3E"},
    {shp_keyNodes3, shp_keyIntPts3, shp_key3D, {}, "ACIN3D3"},
    {shp_keyNodes6, shp_keyIntPts6, shp_key3D, {}, "ACIN3D6 DS6"},
    {shp_keyNodes3, shp_keyIntPts3, shp_key3D, {shp_keyNodalIntegration, shp_keyInteraction}, "ASI3D3 IRSXX3 ISP3"},
    {shp_keyNodes6, shp_keyIntPts6, shp_key3D, {shp_keyNodalIntegration, shp_keyInteraction}, "ASI3D6"},
    {shp_keyNodes3, shp_keyIntPts1, shp_key2D, {shp_keyPlane},
     "CPS3 CPS3E CPS3T CPE3 CPE3E CPE3H CPE3T CPE3P EMC2D3 CGPE5 CGPE5H CGPE5T CGPE5HT CPEG3 CPEG3H CPEG3T CPEG3HT"},
    {shp_keyNodes3, shp_keyIntPts3, shp_key2D, {shp_keyNodalIntegration, shp_keyPlane}, "DC2D3 DC2D3E"},
    {shp_keyNodes3, shp_keyIntPts1, shp_key2D, {shp_keyAxisymmetric}, "CAX3 CAX3E CAX3H CAX3P CAX3T"},
    {shp_keyNodes3, shp_keyIntPts1, shp_key2D, {shp_keyAxisymmetric, shp_keyTwisted}, "CGAX3 CGAX3H CGAX3HT CGAX3T"},
    {shp_keyNodes6, shp_keyIntPts6, shp_key2D, {shp_keyPlane}, "AC2D6 DC2D6 DC2D6E"},
    {shp_keyNodes6, shp_keyIntPts3, shp_key2D, {shp_keyPlane},
     "CPS6 CPS6E CPE6 CPE6E CPE6H CGPE8 CGPE8H CPEG6 CPEG6H CPEG6MT CPEG6MHT"},
    {shp_keyNodes6, shp_keyIntPts3, shp_key2D, {shp_keyModified, shp_keyPlane},
     "CPS6M CPS6MT CPE6M CPE6MH CPE6MHT CPE6MP CPE6MPH CPE6MT CPEG6M CPEG6MH"},
    {shp_keyNodes6, shp_keyIntPts6, shp_key2D, {shp_keyAxisymmetric}, "ACAX6 DCAX6 DCAX6E"},
    {shp_keyNodes6, shp_keyIntPts3, shp_key2D, {shp_keyAxisymmetric}, "CAX6 CAX6E CAX6H"},
    {shp_keyNodes6, shp_keyIntPts3, shp_key2D, {shp_keyAxisymmetric, shp_keyModified},
     "CAX6M CAX6MH CAX6MHT CAX6MP CAX6MPH CAX6MT"},
    {shp_keyNodes6, shp_keyIntPts3, shp_key2D, {shp_keyAxisymmetric, shp_keyTwisted}, "CGAX6 CGAX6H"},
    {shp_keyNodes6, shp_keyIntPts3, shp_key2D, {shp_keyAxisymmetric, shp_keyModified, shp_keyTwisted},
     "CGAX6M CGAX6MH CGAX6MHT CGAX6MT"},
    {shp_keyNodes3, shp_keyIntPts3, shp_key3D, {shp_keyNodalIntegration}, "DS3 STRI3 STRI35"},
    {shp_keyNodes3, shp_keyIntPts1, shp_key3D, {},
     "M3D3 S3R S3RT S3 S3T S3RS F3D3 USI3 SFM3D3 SFM3D3P SFM3D3PT SFM3D3T"},
    {shp_keyNodes6, shp_keyIntPts3, shp_key3D, {}, "STRI65 M3D6 SFM3D6"},
    {shp_keyNodes3, shp_keyIntPts1, shp_key3D, {shp_keyRigid, shp_keyNoResults, shp_keyInteraction}, "R3D3"},
    {shp_keyNodes3, shp_keyIntPts1, shp_key3D, {shp_keyInternal, shp_keySurface, shp_keyInteraction}, "INTRNL3 TSURF1"},
    {shp_keyNodes6, shp_keyIntPts1, shp_key3D, {shp_keyInternal, shp_keySurface, shp_keyInteraction}, "INTRNL6 TSURF2"},
    {shp_keyNodes3, shp_keyIntPts1, shp_key3D, {shp_keyPlane}, "WARP2D3"},
    {shp_keyNodes3, shp_keyIntPts3, shp_key3D, {shp_keyPlane}, "WARPF2D3"},
    {shp_keyNodes6, shp_keyIntPts6, shp_key3D, {shp_keyPlane}, "WARPF2D6"},
};

// GPE10RHT has no leading C; CGPE10RHT is no label. Of the cylindrical surfaces only CYLSURF1 is shp_keyCylindrical.
// LS6 and USI6O are gaskets by their key.
constexpr Row rowsQuad[] = {
    {shp_keyNodes4, shp_keyIntPts4, shp_key3D, {}, "ACIN3D4 S4 S4T M3D4 SFM3D4"},
    {shp_keyNodes8, shp_keyIntPts9, shp_key3D, {}, "ACIN3D8 DS8 M3D8 SFM3D8"},
    {shp_keyNodes4, shp_keyIntPts4, shp_key2D, {shp_keyPlane},
     "CPS4 CPS4E CPS4H CPS4I CPE4 CPE4E CPE4H CPE4I CPE4IH CPE4P CPE4PH CPS4T CPE4T CPE4HT CPE4PT CPE4PHT EMC2D4 "
     "AC2D4 DCC2D4 DCC2D4D CGPE6 CGPE6H CGPE6I CGPE6IH CGPE6T CGPE6HT CPEG4 CPEG4H CPEG4I CPEG4IH CPEG4T CPEG4HT "
     "EMCP4"},
    {shp_keyNodes4, shp_keyIntPts1, shp_key2D, {shp_keyPlane},
     "CPS4R CPS4RT CPE4R CPE4RT CPE4RH CPE4RHT CPE4RP CPE4RPH CPE4RPT CPE4RPHT AC2D4R CGPE6R CGPE6RH CPEG4R "
     "CPEG4RH CPEG4RHT CPEG4RT"},
    {shp_keyNodes4, shp_keyIntPts4, shp_key2D, {shp_keyInfinite, shp_keyPlane}, "CINPS4 CINPE4"},
    {shp_keyNodes4, shp_keyIntPts4, shp_key2D, {shp_keyPlane, shp_keyCornerLumped}, "DC2D4 DC2D4E"},
    {shp_keyNodes4, shp_keyIntPts4, shp_key2D, {shp_keyAxisymmetric},
     "ACAX4 CAX4 CAX4E CAX4H CAX4HT CAX4I CAX4IH CAX4P CAX4PH CAX4PT CAX4T DCCAX4 DCCAX4D CAXA4N CAXA4HN"},
    {shp_keyNodes4, shp_keyIntPts1, shp_key2D, {shp_keyAxisymmetric},
     "ACAX4R CAX4RPT CAX4RPHT CAX4R CAX4RH CAX4RHT CAX4RP CAX4RPH CAX4RT CAXA4RN CAXA4RHN"},
    {shp_keyNodes4, shp_keyIntPts4, shp_key2D, {shp_keyAxisymmetric, shp_keyTwisted}, "CGAX4 CGAX4H CGAX4T CGAX4HT"},
    {shp_keyNodes4, shp_keyIntPts1, shp_key2D, {shp_keyAxisymmetric, shp_keyTwisted},
     "CGAX4R CGAX4RH CGAX4RHT CGAX4RT"},
    {shp_keyNodes4, shp_keyIntPts4, shp_key2D, {shp_keyAxisymmetric, shp_keyInfinite}, "CINAX4"},
    {shp_keyNodes4, shp_keyIntPts4, shp_key2D, {shp_keyAxisymmetric, shp_keyCornerLumped}, "DCAX4 DCAX4E"},
    {shp_keyNodes5, shp_keyIntPts4, shp_key2D, {shp_keyInfinite, shp_keyPlane}, "CINPE5R CINPS5R"},
    {shp_keyNodes5, shp_keyIntPts4, shp_key2D, {shp_keyAxisymmetric, shp_keyInfinite}, "CINAX5R"},
    {shp_keyNodes8, shp_keyIntPts9, shp_key2D, {shp_keyPlane},
     "CPS8 CPS8E CPS8T CPE8 CPE8E CPE8H CPE8HT CPE8P CPE8PH CPE8T AC2D8 DC2D8 DC2D8E CGPE10 CGPE10H CGPE10T "
     "CGPE10HT CPEG8 CPEG8H CPEG8T CPEG8HT"},
    {shp_keyNodes8, shp_keyIntPts4, shp_key2D, {shp_keyPlane},
     "CPS8R CPS8RE CPS8RT CPE8R CPE8RE CPE8RH CPE8RP CPE8RPH CPE8RHT CPE8RT CGPE10R CGPE10RH GPE10RHT CPEG8R "
     "CPEG8RH CPEG8RHT"},
    {shp_keyNodes8, shp_keyIntPts9, shp_key2D, {shp_keyAxisymmetric},
     "ACAX8 CAX8 CAX8E CAX8H CAX8HT CAX8P CAX8PH CAX8T DCAX8 DCAX8E CAXA8N CAXA8HN CAXA8PN"},
    {shp_keyNodes8, shp_keyIntPts4, shp_key2D, {shp_keyAxisymmetric},
     "CAX8R CAX8RE CAX8RH CAX8RHT CAX8RP CAX8RPH CAX8RT CAXA8RN CAXA8RHN"},
    {shp_keyNodes8, shp_keyIntPts9, shp_key2D, {shp_keyAxisymmetric, shp_keyTwisted}, "CGAX8 CGAX8H CGAX8T CGAX8HT"},
    {shp_keyNodes8, shp_keyIntPts4, shp_key2D, {shp_keyAxisymmetric, shp_keyTwisted},
     "CGAX8R CGAX8RH CGAX8RHT CGAX8RT"},
    {shp_keyNodes4, shp_keyIntPts1, shp_key3D, {}, "S4R S4RT S4R5 S4RS S4RSW M3D4R F3D4 USI4 SFM3D4R SHEAR4"},
    {shp_keyNodes4, shp_keyIntPts4, shp_key3D, {shp_keyCornerLumped}, "DS4"},
    {shp_keyNodes8, shp_keyIntPts4, shp_key3D, {}, "S8R S8R5 S8RT M3D8R SFM3D8R"},
    {shp_keyNodes9, shp_keyIntPts4, shp_key3D, {}, "S9R5 M3D9R USI9O"},
    {shp_keyNodes9, shp_keyIntPts9, shp_key3D, {}, "M3D9"},
    {shp_keyNodes4, shp_keyIntPts4, shp_key3D, {shp_keyNodalIntegration, shp_keyInteraction},
     "IRSXX4 ISP4 ISP4T ASI3D4 ASI4"},
    {shp_keyNodes9, shp_keyIntPts9, shp_key3D, {shp_keyNodalIntegration, shp_keyInteraction}, "IRSXX9"},
    {shp_keyNodes4, shp_keyIntPts1, shp_key3D, {shp_keyRigid, shp_keyNoResults, shp_keyInteraction}, "R3D4"},
    {shp_keyNodes4, shp_keyIntPts1, shp_key3D, {shp_keyInternal, shp_keySurface, shp_keyInteraction}, "INTRNL4 QSURF1"},
    {shp_keyNodes8, shp_keyIntPts1, shp_key3D, {shp_keyInternal, shp_keySurface, shp_keyInteraction}, "INTRNL8 QSURF2"},
    {shp_keyNodes9, shp_keyIntPts1, shp_key3D, {shp_keyInternal, shp_keySurface, shp_keyInteraction},
     "INTRNL9 QSURF3 CYLSURF2"},
    {shp_keyNodes6, shp_keyIntPts1, shp_key3D, {shp_keyInternal, shp_keySurface, shp_keyInteraction,
      shp_keyCylindrical}, "CYLSURF1"},
    {shp_keyNodes8, shp_keyIntPts9, shp_key3D, {shp_keyInteraction}, "ASI3D8 ASI8"},
    {shp_keyNodes4, shp_keyIntPts2, shp_key2D, {shp_keyPlane, shp_keyCohesive}, "COH2D4 COH2D4T"},
    {shp_keyNodes6, shp_keyIntPts2, shp_key2D, {shp_keyPlane, shp_keyCohesive},
     "COH2D4P COD2D4C COD2D4P COD2D4Q COD2D4PT"},
    {shp_keyNodes4, shp_keyIntPts2, shp_key2D, {shp_keyGasket, shp_keyPlane}, "GKPE4 GKPS4 GKPS4N"},
    {shp_keyNodes4, shp_keyIntPts2, shp_key3D, {shp_keyGasket}, "GK3D4L GK3D4LN"},
    {shp_keyNodes6, shp_keyIntPts3, shp_key2D, {shp_keyGasket, shp_keyPlane}, "GKPE6 GKPS6 GKPS6N"},
    {shp_keyNodes6, shp_keyIntPts3, shp_key3D, {shp_keyGasket}, "GK3D6L GK3D6LN LS6 USI6O"},
    {shp_keyNodes4, shp_keyIntPts2, shp_key2D, {shp_keyAxisymmetric, shp_keyCohesive}, "COHAX4 COHAX4T"},
    {shp_keyNodes6, shp_keyIntPts2, shp_key2D, {shp_keyAxisymmetric, shp_keyCohesive},
     "COHAX4P CODAX4C CODAX4P CODAX4Q CODAX4PT"},
    {shp_keyNodes4, shp_keyIntPts2, shp_key2D, {shp_keyGasket, shp_keyAxisymmetric}, "GKAX4 GKAX4N"},
    {shp_keyNodes6, shp_keyIntPts3, shp_key2D, {shp_keyGasket, shp_keyAxisymmetric}, "GKAX6 GKAX6N"},
    {shp_keyNodes4, shp_keyIntPts2, shp_key2D, {shp_keyPlane, shp_keyPipeSoil}, "PSI24"},
    {shp_keyNodes6, shp_keyIntPts3, shp_key2D, {shp_keyPlane, shp_keyPipeSoil}, "PSI26"},
    {shp_keyNodes4, shp_keyIntPts2, shp_key3D, {shp_keyPipeSoil}, "PSI34"},
    {shp_keyNodes6, shp_keyIntPts3, shp_key3D, {shp_keyPipeSoil}, "PSI36"},
    {shp_keyNodes4, shp_keyIntPts4, shp_key3D, {shp_keyPlane}, "WARP2D4 WARPF2D4"},
    {shp_keyNodes8, shp_keyIntPts9, shp_key3D, {shp_keyPlane}, "WARPF2D8"},
    {shp_keyNodes6, shp_keyIntPts3, shp_key3D, {shp_keyCylindrical}, "MCL6"},
    {shp_keyNodes9, shp_keyIntPts6, shp_key3D, {shp_keyCylindrical}, "MCL9"},
    {shp_keyNodes6, shp_keyIntPts2, shp_key3D, {shp_keyCylindrical}, "SFMCL6"},
    {shp_keyNodes9, shp_keyIntPts4, shp_key3D, {shp_keyCylindrical}, "SFMCL9"},
    {shp_keyNodes4, shp_keyIntPts4, shp_key2D, {shp_keyCaxa}, "CAXA4 CAXA4H", 4},
    {shp_keyNodes4, shp_keyIntPts1, shp_key2D, {shp_keyCaxa}, "CAXA4R CAXA4RH", 4},
    {shp_keyNodes8, shp_keyIntPts9, shp_key2D, {shp_keyCaxa}, "CAXA8 CAXA8H CAXA8P", 4},
    {shp_keyNodes8, shp_keyIntPts4, shp_key2D, {shp_keyCaxa}, "CAXA8R CAXA8RH CAXA8RP", 4},
};

constexpr Row rowsTetra[] = {
    {shp_keyNodes4, shp_keyIntPts4, shp_key3D, {}, "AC3D4"},
    {shp_keyNodes4, shp_keyIntPts1, shp_key3D, {},
     "C3D4 C3D4A C3D4E Q3D4 QEC3D4 C3D4H C3D4P C3D4T C3D4PT C3D4PH C3D4PHT EMC3D4 FC3D4"},
    {shp_keyNodes4, shp_keyIntPts4, shp_key3D, {shp_keyNodalIntegration}, "DC3D4 DC3D4E"},
    {shp_keyNodes10, shp_keyIntPts15, shp_key3D, {}, "AC3D10 DC3D10 DC3D10E"},
    {shp_keyNodes10, shp_keyIntPts4, shp_key3D, {},
     "C3D10 C3D10E C3D10H C3D10IR C3D10P C3D10PH C3D10T C3D10HT C3D10PT C3D10PHT"},
    {shp_keyNodes10, shp_keyIntPts11, shp_key3D, {}, "C3D10I C3D10HS"},
    {shp_keyNodes10, shp_keyIntPts4, shp_key3D, {shp_keyModified},
     "C3D10M Q3D10M C3D10MH Q3D10MH C3D10MHT C3D10MP C3D10MPT C3D10MPH C3D10MT"},
};

constexpr Row rowsPyr[] = {
    {shp_keyNodes5, shp_keyIntPts1, shp_key3D, {}, "FC3D5"},
    {shp_keyNodes5, shp_keyIntPts5, shp_key3D, {}, "AC3D5 C3D5 C3D5H C3D5T DC3D5"},
};

// C3D15V has 18 nodes. Of the layered prisms only mode 3 becomes a label.
constexpr Row rowsPrism[] = {
    {shp_keyNodes6, shp_keyIntPts6, shp_key3D, {}, "AC3D6"},
    {shp_keyNodes6, shp_keyIntPts2, shp_key3D, {},
     "C3D6 C3D6A C3D6E Q3D6 QEC3D6 C3D6H C3D6P C3D6PH C3D6T C3D6HT C3D6PT C3D6PHT EMC3D6"},
    {shp_keyNodes6, shp_keyIntPts1, shp_key3D, {}, "C3D6R C3D6RT FC3D6"},
    {shp_keyNodes6, shp_keyIntPts6, shp_key3D, {shp_keyNodalIntegration}, "DC3D6 DC3D6E"},
    {shp_keyNodes15, shp_keyIntPts18, shp_key3D, {}, "AC3D15 DC3D15 DC3D15E"},
    {shp_keyNodes15, shp_keyIntPts9, shp_key3D, {}, "C3D15 C3D15E C3D15H"},
    {shp_keyNodes18, shp_keyIntPts9, shp_key3D, {}, "C3D15V C3D15VH"},
    {shp_keyNodes6, shp_keyIntPts3, shp_key3D, {shp_keyCohesive}, "COH3D6 COH3D6T"},
    {shp_keyNodes9, shp_keyIntPts3, shp_key3D, {shp_keyCohesive}, "COH3D6P COD3D6C COD3D6P COD3D6Q COD3D6PT"},
    {shp_keyNodes6, shp_keyIntPts3, shp_key3D, {shp_keyGasket}, "GK3D6 GK3D6T GK3D6N GK3D6TN"},
    {shp_keyNodes12, shp_keyIntPts6, shp_key3D, {shp_keyGasket}, "GK3D12M GK3D12MN"},
    {shp_keyNodes6, shp_keyIntPts1, shp_key3D, {shp_keyContinuumShell}, "SC6R SC6RT"},
    {shp_keyNodes9, shp_keyIntPts3, shp_key3D, {shp_keyCylindrical}, "CCL9 CCL9H"},
    {shp_keyNodes18, shp_keyIntPts9, shp_key3D, {shp_keyCylindrical}, "CCL18 CCL18H"},
    {shp_keyNodes6, shp_keyIntPts1, shp_key3D, {shp_keyLayeredSolid}, "C3D6C C3D6HC", 3},
    {shp_keyNodes15, shp_keyIntPts3, shp_key3D, {shp_keyLayeredSolid}, "C3D15C C3D15HC", 3},
    {shp_keyNodes18, shp_keyIntPts3, shp_key3D, {shp_keyLayeredSolid}, "C3D15VC C3D15VHC", 3},
};

// C3D8S and the like integrate eight nodes by the 27-point rule.
constexpr Row rowsHex[] = {
    {shp_keyNodes8, shp_keyIntPts8, shp_key3D, {shp_keyZero}, "AC3D8"},
    {shp_keyNodes8, shp_keyIntPts8, shp_key3D, {},
     "C3D8 C3D8A C3D8E Q3D8 Q3D8H C3D8H C3D8HT C3D8I CSS8 C3D8IH C3D8P C3D8PH C3D8PHT C3D8T C3D8PT DCC3D8 DCC3D8D "
     "QEC3D8 EMC3D8"},
    {shp_keyNodes8, shp_keyIntPts1, shp_key3D, {},
     "AC3D8R C3D8R Q3D8R Q3D8RH C3D8RH C3D8RHT C3D8RP C3D8RPH C3D8RT C3D8RPT C3D8RPHT DC3D8R EC3D8R QEC3D8R "
     "EC3D8RT FC3D8"},
    {shp_keyNodes8, shp_keyIntPts27, shp_key3D, {}, "C3D8S C3D8HS C3D8X"},
    {shp_keyNodes8, shp_keyIntPts8, shp_key3D, {shp_keyCornerLumped}, "DC3D8 DC3D8E"},
    {shp_keyNodes8, shp_keyIntPts8, shp_key3D, {shp_keyInfinite}, "CIN3D8"},
    {shp_keyNodes12, shp_keyIntPts8, shp_key3D, {shp_keyInfinite}, "CIN3D12R"},
    {shp_keyNodes18, shp_keyIntPts18, shp_key3D, {shp_keyInfinite}, "CIN3D18R"},
    {shp_keyNodes20, shp_keyIntPts27, shp_key3D, {},
     "AC3D20 C3D20 C3D20E Q3D20 Q3D20H C3D20H C3D20HT C3D20P C3D20PH C3D20T DC3D20 DC3D20E"},
    {shp_keyNodes20, shp_keyIntPts8, shp_key3D, {},
     "C3D20R C3D20RE Q3D20R C3D20RH Q3D20RH C3D20RHT C3D20RP C3D20RPH C3D20RT"},
    {shp_keyNodes27, shp_keyIntPts27, shp_key3D, {}, "C3D27 C3D27H"},
    {shp_keyNodes27, shp_keyIntPts14, shp_key3D, {}, "C3D27R C3D27RH"},
    {shp_keyNodes8, shp_keyIntPts4, shp_key3D, {shp_keyCohesive}, "COH3D8 COH3D8T"},
    {shp_keyNodes12, shp_keyIntPts4, shp_key3D, {shp_keyCohesive}, "COH3D8P COD3D8C COD3D8P COD3D8Q COD3D8PT"},
    {shp_keyNodes8, shp_keyIntPts4, shp_key3D, {shp_keyGasket}, "GK3D8 GK3D8T GK3D8N GK3D8TN"},
    {shp_keyNodes18, shp_keyIntPts9, shp_key3D, {shp_keyGasket}, "GK3D18 GK3D18N"},
    {shp_keyNodes8, shp_keyIntPts1, shp_key3D, {shp_keyContinuumShell}, "SC8R SC8RT"},
    {shp_keyNodes12, shp_keyIntPts12, shp_key3D, {shp_keyCylindrical}, "CCL12 CCL12H"},
    {shp_keyNodes24, shp_keyIntPts27, shp_key3D, {shp_keyCylindrical}, "CCL24 CCL24H"},
    {shp_keyNodes24, shp_keyIntPts12, shp_key3D, {shp_keyCylindrical}, "CCL24R CCL24RH"},
    {shp_keyNodes8, shp_keyIntPts4, shp_key3D, {shp_keyLayeredSolid}, "C3D8C C3D8HC C3D8IC CSS8C C3D8IHC", 3},
    {shp_keyNodes8, shp_keyIntPts1, shp_key3D, {shp_keyLayeredSolid}, "C3D8RC C3D8RHC", 3},
    {shp_keyNodes20, shp_keyIntPts9, shp_key3D, {shp_keyLayeredSolid}, "C3D20C C3D20HC", 3},
    {shp_keyNodes20, shp_keyIntPts4, shp_key3D, {shp_keyLayeredSolid}, "C3D20RC C3D20RHC", 3},
    {shp_keyNodes27, shp_keyIntPts9, shp_key3D, {shp_keyLayeredSolid}, "C3D27C C3D27HC", 3},
    {shp_keyNodes27, shp_keyIntPts5, shp_key3D, {shp_keyLayeredSolid}, "C3D27RC C3D27RHC", 3},
};
// clang-format on

/// All rows of one shape family.
struct Family {
    shp_KeyBit shape;
    std::span<Row const> rows;
};

constexpr Family ARS = {shp_keyARS, rowsARS};
constexpr Family point = {shp_keyPoint, rowsPoint};
constexpr Family line = {shp_keyLine, rowsLine};
constexpr Family tri = {shp_keyTri, rowsTri};
constexpr Family quad = {shp_keyQuad, rowsQuad};
constexpr Family tetra = {shp_keyTetra, rowsTetra};
constexpr Family pyr = {shp_keyPyramid, rowsPyr};
constexpr Family prism = {shp_keyPrism, rowsPrism};
constexpr Family hex = {shp_keyHex, rowsHex};

/// In the order of generation.
constexpr Family const * families[] = {&ARS, &point, &line, &tri, &quad, &tetra, &pyr, &prism, &hex};

constexpr LongKey keyOf(Family const & family, Row const & row) {
    LongKey key;
    auto const add = [&key](shp_KeyBit bit) {
        auto const number = static_cast<unsigned int>(bit);
        key.setBits(1, &number);
    };
    for (shp_KeyBit const bit : {family.shape, row.nodes, row.points, row.space})
        add(bit);
    for (shp_KeyBit const bit : row.flags)
        add(bit);
    return key;
}

/// Takes the next label off the front of a row's `labels`.
constexpr std::string_view takeLabel(std::string_view & labels) {
    std::string_view const label = labels.substr(0, labels.find(' '));
    labels.remove_prefix(label.size() < labels.size() ? label.size() + 1 : label.size());
    return label;
}

/// Calls `visit(label, modeDigit, key)` for all labels, row by row; the digit is 0 where the label has none behind it.
template <class Visit> constexpr void forEachLabel(Family const & family, Visit visit) {
    for (Row const & row : family.rows) {
        LongKey const key = keyOf(family, row);
        for (std::string_view rest = row.labels; !rest.empty();) {
            std::string_view const label = takeLabel(rest);
            if (row.modes == 0)
                visit(label, '\0', key);
            else
                shp_forEachMode(key, row.modes, [&](int mode, LongKey const & keyOfMode) {
                    visit(label, static_cast<char>('0' + mode), keyOfMode);
                });
        }
    }
}

constexpr std::size_t labelCount(Family const & family) {
    std::size_t count = 0;
    forEachLabel(family, [&](std::string_view, char, LongKey const &) { ++count; });
    return count;
}

/// The labels of the families that are generated before this one, or of all before null.
constexpr std::size_t labelsBefore(Family const * family) {
    std::size_t count = 0;
    for (Family const * const earlier : families) {
        if (earlier == family)
            break;
        count += labelCount(*earlier);
    }
    return count;
}
static_assert(labelsBefore(nullptr) == shp_catalogueSize);

/// Numbers in the order of the texts that they stand for.
struct SortKey {
    std::uint64_t first, rest; ///< the bytes of the label, the first one on top
    std::size_t index;

    constexpr bool operator<(SortKey const & other) const {
        return first < other.first || (first == other.first && rest < other.rest);
    }
};

constexpr SortKey sortKeyOf(shp_CatalogueEntry const & entry, std::size_t index) {
    SortKey sortKey = {0, 0, index};
    for (std::size_t i = 0; i < 8; ++i) {
        sortKey.first = sortKey.first << 8 | static_cast<unsigned char>(entry.label[i]);
        sortKey.rest =
            sortKey.rest << 8 | static_cast<unsigned char>(i + 8 < sizeof entry.label ? entry.label[i + 8] : '\0');
    }
    return sortKey;
}

using Entries = std::array<shp_CatalogueEntry, shp_catalogueSize>;

constexpr Entries rankedEntries() {
    Entries entries = {};
    std::array<SortKey, shp_catalogueSize> order = {};
    std::size_t count = 0;
    for (Family const * const family : families)
        forEachLabel(*family, [&](std::string_view label, char modeDigit, LongKey const & key) {
            shp_CatalogueEntry & entry = entries[count];
            std::size_t const length = label.size() + (modeDigit != '\0' ? 1 : 0);
            if (length >= sizeof entry.label)
                throw "a label is too long";
            std::copy(label.begin(), label.end(), entry.label);
            entry.label[label.size()] = modeDigit;
            entry.key = key;
            order[count] = sortKeyOf(entry, count);
            ++count;
        });
    std::sort(order.begin(), order.end());
    for (std::size_t rank = 0; rank < count; ++rank)
        entries[order[rank].index].rank = static_cast<short>(rank);
    return entries;
}

constexpr Entries entries = rankedEntries();

constexpr shp_CatalogueEntries entriesOf(Family const & family) {
    return shp_CatalogueEntries(entries).subspan(labelsBefore(&family), labelCount(family));
}

} // namespace

constexpr shp_CatalogueEntries shp_catalogueARS = entriesOf(ARS);
constexpr shp_CatalogueEntries shp_cataloguePoint = entriesOf(point);
constexpr shp_CatalogueEntries shp_catalogueLine = entriesOf(line);
constexpr shp_CatalogueEntries shp_catalogueTri = entriesOf(tri);
constexpr shp_CatalogueEntries shp_catalogueQuad = entriesOf(quad);
constexpr shp_CatalogueEntries shp_catalogueTetra = entriesOf(tetra);
constexpr shp_CatalogueEntries shp_cataloguePyr = entriesOf(pyr);
constexpr shp_CatalogueEntries shp_cataloguePrism = entriesOf(prism);
constexpr shp_CatalogueEntries shp_catalogueHex = entriesOf(hex);
