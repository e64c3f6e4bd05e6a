#ifndef odiC_StepFrameDesc_h
#define odiC_StepFrameDesc_h

#include "QVRShpCore_Export.h"
#include "cow_List.h"
#include "cow_ListIter.h"
#include "cow_String.h"
#include "mem_AllocationOperators.h"
#include "odiC_StepDomainEnm.h"
#include "omi_BlkBitVect.h"

class omu_PrimTuple;

/// One analysis step of an output database: two texts, three numbers, its domain, and the frames that it holds. What
/// the numbers, the flag and the mask say is a matter between those who write the database and those who read it.
///
/// Packed form, a tuple of 11: label, description, the three values, domain, label of the default frame, labels and
/// values of the frames (a list each), flag, mask of frames (a list of texts, utl_BlkBitUtils::GetMaskString). The
/// three values are double there, domain and flag int.
///
/// Copies share their texts and lists. Threads: comparing and packing count as copying, so no two threads use a
/// description and its copies at once while one of them does any of this or writes.
class QVRSHPCORE_API odiC_StepFrameDesc : public mem_AllocationOperators {
public:
    /// Empty texts, lists and mask; the values 0, -1 and -1; domain 0; the flag false.
    odiC_StepFrameDesc() = default;
    /// From all fields. `valuesOfFrames` stand in the order of `labelsOfFrames`; that there are as many is not checked.
    odiC_StepFrameDesc(cow_String const & label, cow_String const & description, float value1, float value2,
                       float value3, odiC_StepDomainEnm stepDomain, cow_String const & defaultFrame,
                       cow_List<cow_String> const & labelsOfFrames, cow_List<float> const & valuesOfFrames,
                       omi_BlkBitVect const & maskOfFrames, bool flag);

    /// The fields as they were given; the class says who knows what they mean.
    cow_String const & StepLabel() const { return stepLabel; }
    cow_String const & StepDescription() const { return stepDescription; }
    float StepValue1() const { return stepValue1; }
    float StepValue2() const { return stepValue2; }
    float StepValue3() const { return stepValue3; }
    odiC_StepDomainEnm Domain() const { return domain; }
    bool StepFlag() const { return stepFlag; }
    cow_String const & DefaultFrameLabel() const { return defaultFrameLabel; }
    /// The labels and the values of the frames, each in the frames' order.
    cow_List<cow_String> const & FrameLabels() const { return frameLabels; }
    cow_List<float> const & FrameValues() const { return frameValues; }
    /// Another of the fields whose meaning is a matter of who writes.
    omi_BlkBitVect const & FrameMask() const { return frameMask; }

    /// The first position of the default frame's label among the labels of the frames; -99 when it is not there.
    int DefFrameId() const;

    /// Whether all fields are equal. A description equals itself; a copy of one with a not-a-number among its three
    /// values does not.
    bool operator==(odiC_StepFrameDesc const & other) const;
    bool operator!=(odiC_StepFrameDesc const & other) const { return !(*this == other); }
    /// The order of the step labels' bytes alone: descriptions with the same label are in no order, equal or not.
    bool operator<(odiC_StepFrameDesc const & other) const { return stepLabel < other.stepLabel; }
    bool operator>(odiC_StepFrameDesc const & other) const { return stepLabel > other.stepLabel; }

    /// The packed form. The caller owns it.
    omu_PrimTuple * PackTuple() const;
    /// What PackTuple packed, read from the tuple's first element on. A missing, surplus or wrong element raises
    /// nex_PrimException<atr_String, 1>.
    static odiC_StepFrameDesc UnpackTuple(omu_PrimTuple & tuple);

private:
    /// Calls `visit` with each field, in the order in which they are packed.
    template <class Visit, class Self> static void forEachField(Visit visit, Self & self);

    cow_String stepLabel;
    cow_String stepDescription;
    float stepValue1 = 0;
    float stepValue2 = -1;
    float stepValue3 = -1;
    odiC_StepDomainEnm domain{};
    bool stepFlag = false;
    cow_String defaultFrameLabel;
    cow_List<cow_String> frameLabels;
    cow_List<float> frameValues;
    omi_BlkBitVect frameMask;
};

extern template class cow_List<odiC_StepFrameDesc>;
extern template class cow_ListIter<odiC_StepFrameDesc>;

#endif
