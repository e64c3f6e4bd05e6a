#ifndef shp_KeyBit_h
#define shp_KeyBit_h

/// The bit numbers of an element type's LongKey. Numbers that are left out are used by no label.
enum shp_KeyBit : int {
    /// Set only by the key lists of ARSC and AC3D8, which end in a bit number 0. It means nothing, and it stays:
    /// stored keys have it.
    shp_keyZero = 0,

    // Shape family; the bit number is the value of shp_Options::Shape().
    shp_keyPoint = 1,
    shp_keyLine = 2,
    shp_keyTri = 3,
    shp_keyQuad = 4,
    shp_keyTetra = 5,
    shp_keyHex = 6,
    shp_keyPrism = 7,
    shp_keyARS = 8,     ///< analytic rigid surface; every table choice treats it like the point
    shp_keyPyramid = 9, ///< the highest number, though the catalogue lists it before the prism

    // Integration point count. The bits for 5 and 11 points came last and stand last.
    shp_keyIntPts1 = 10,
    shp_keyIntPts2 = 11,
    shp_keyIntPts3 = 12,
    shp_keyIntPts4 = 13,
    shp_keyIntPts6 = 14,
    shp_keyIntPts8 = 15,
    shp_keyIntPts9 = 16,
    shp_keyIntPts12 = 17,
    shp_keyIntPts14 = 18,
    shp_keyIntPts15 = 19,
    shp_keyIntPts18 = 20,
    shp_keyIntPts27 = 21,
    shp_keyIntPts5 = 22,
    shp_keyIntPts11 = 23,

    // Node count.
    shp_keyNodes1 = 30,
    shp_keyNodes2 = 31,
    shp_keyNodes3 = 32,
    shp_keyNodes4 = 33,
    shp_keyNodes5 = 34,
    shp_keyNodes6 = 35,
    shp_keyNodes8 = 36,
    shp_keyNodes9 = 37,
    shp_keyNodes10 = 38,
    shp_keyNodes12 = 39,
    shp_keyNodes15 = 40,
    shp_keyNodes18 = 41,
    shp_keyNodes20 = 42,
    shp_keyNodes24 = 43,
    shp_keyNodes27 = 44,

    // Behaviour.
    shp_keyLineInPlane = 50,             ///< line of a planar or axisymmetric model (T2D2, SAX1)
    shp_keyGasket = 51,                  ///< GK2D2, GK3D8
    shp_keyAxisymmetric = 52,            ///< element of an axisymmetric model
    shp_keyModified = 53,                ///< modified second-order triangle or tetrahedron (CPS6M, C3D10M)
    shp_keyArsSegments = 54,             ///< ARSSS, ARSSE
    shp_keyArsRevolved = 55,             ///< ARSR
    shp_keyArsCylinder = 56,             ///< ARSC
    shp_keyInfinite = 57,                ///< CINPS4, CIN3D8; an infinite quadrilateral has one edge fewer
    shp_keyNodalIntegration = 58,        ///< integration points stand at the nodes
    shp_keyTwisted = 59,                 ///< generalised axisymmetric element with twist (CGAX4)
    shp_keyRigid = 60,                   ///< R3D4, RNODE3D
    shp_keyInternal = 61,                ///< INTRNL4, PSURF1, SPOTWELD
    shp_keySurface = 62,                 ///< TSURF1, LSURF1, the ARS labels
    shp_keyNoResults = 63,               ///< the element has no results
    shp_keyInteraction = 64,             ///< ISL21, SPRING2, MASS
    shp_keyCaxa = 65,                    ///< element in several planes around its axis: mode plus 1 of them (CAXA41)
    shp_keyCylindrical = 66,             ///< CCL9, MCL6, CYLSURF1
    shp_keyPlane = 67,                   ///< element of a two-dimensional section (CPS4, R2D2)
    shp_keyCornerLumped = 68,            ///< first-order diffusive element (DC2D4, DS4, DC3D8)
    shp_keyPipeSoil = 69,                ///< pipe-soil interaction (PSI24)
    shp_keyCohesive = 70,                ///< COH2D4
    shp_keyContinuumShell = 71,          ///< SC6R, SC8RT
    shp_keyFrame = 72,                   ///< FRAME2D, FRAME3D
    shp_keyUnassigned73 = 73,            ///< set by no label
    shp_keyLayeredSolid = 74,            ///< layered solid; the label's last digit is its mode (C3D8C1)
    shp_keyFluidpipeThermal = 75,        ///< two-node line whose node count is raised to six
    shp_keyFluidpipeAnnulusThermal = 76, ///< two-node line whose node count is raised to eight

    // Space of the model, not of the shape (WARP2D3 is planar and three-dimensional). Every label has exactly one.
    shp_key2D = 80,
    shp_key3D = 81,

    // Mode: never in a stored key list; the catalogue adds one of them to each label that ends in a mode digit.
    shp_keyMode1 = 90,
    shp_keyMode2 = 91,
    shp_keyMode3 = 92,
    shp_keyMode4 = 93,

    // Element class. The library reads only shp_keyClassCoupling. Some bits stand for unlike labels (ALE3D goes
    // with the pipes, DASHPOT1 with the elbows, HEATCAP with the dashpots): stored keys have them so.
    shp_keyClassBeam = 100,
    shp_keyClassPipe = 101,
    shp_keyClassElbow = 102,
    shp_keyClassConnector = 103,
    shp_keyClassSpring = 104,
    shp_keyClassDashpot = 105,
    shp_keyClassGap = 106,
    shp_keyClassJoint = 107,
    shp_keyClassCoupling = 108,
    shp_keyClassSpring1 = 109,
    shp_keyClassConnectorNode = 110,
    shp_keyClassPointC = 111,
    shp_keyClassPointD = 112
};

#endif
