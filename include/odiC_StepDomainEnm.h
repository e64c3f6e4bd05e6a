#ifndef odiC_StepDomainEnm_h
#define odiC_StepDomainEnm_h

/// What the frames of a step are spread over. The output database gives the numbers; the library only keeps them.
enum odiC_StepDomainEnm : int {};

#endif
