#ifndef stress_recovery_h
#define stress_recovery_h

#include "cylinder_mesh.h"

/// Stresses at the nodes of a mesh, and how far they are from the exact ones.
struct NodalStress {
    std::vector<Stress> stress;    ///< mean over the elements that share the node
    std::vector<Stress> error;     ///< `stress` minus the exact stress
    std::vector<double> errorNorm; ///< size of the error tensor (Frobenius)
    double largestError = 0;       ///< largest of `errorNorm`
    double rmsError = 0;           ///< their root mean square
};

/// Puts the exact stress at every integration point, carries it to the nodes element by element, and takes the mean
/// where elements meet.
NodalStress recoverStress(Cylinder const & cylinder, shp_Topology const & shape, Mesh const & mesh);

/// The stress at a point of an element, interpolated from its nodes.
Stress interpolateStress(shp_Topology const & shape, Mesh const & mesh, NodalStress const & result, int element,
                         float const * iso);

#endif
