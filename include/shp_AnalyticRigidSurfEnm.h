#ifndef shp_AnalyticRigidSurfEnm_h
#define shp_AnalyticRigidSurfEnm_h

#include "QVRShpCore_Export.h"

/// How the profile of an analytic rigid surface makes the surface.
enum QVRSHPCORE_API shp_AnalyticRigidSurfEnm : int {
    shp_AnalyticRigidSurf_AxiSegs = 0,
    shp_AnalyticRigidSurf_ExtSegs = 1,
    shp_AnalyticRigidSurf_Cylinder = 2,
    shp_AnalyticRigidSurf_Revolut = 3
};

#endif
