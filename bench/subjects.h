#ifndef bench_subjects_h
#define bench_subjects_h

namespace bench {

// Each checks that its results agree, and registers its timings. In the order of the tables.

void timeShapeRows();
void timeJacobians();
void timeToSpace();
void timeLocation();
void timeLines();
void timeExtrapolation();
void timeFacesAndCentroids();
void timeLabels();
void timeContainers();
void timePacking();

} // namespace bench

#endif
