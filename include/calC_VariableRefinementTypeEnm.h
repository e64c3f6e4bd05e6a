#ifndef calC_VariableRefinementTypeEnm_h
#define calC_VariableRefinementTypeEnm_h

/// What a variable is refined by: an invariant or a component. Every other value means by nothing.
enum calC_VariableRefinementTypeEnm : int {
    calC_VariableRefinementType_NONE = 0,
    calC_VariableRefinementType_INVARIANT = 1,
    calC_VariableRefinementType_COMPONENT = 2
};

#endif
