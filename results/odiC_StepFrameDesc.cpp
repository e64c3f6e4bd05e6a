#include "odiC_StepFrameDesc.h"

#include "odiC_FieldPacking.h"
#include "utl_BlkBitUtils.h"

template class cow_List<odiC_StepFrameDesc>;
template class cow_ListIter<odiC_StepFrameDesc>;

namespace {

// The mask of frames travels as a list of texts, one for each block of bits.

struct StepWriter : odiC_FieldWriter {
    using odiC_FieldWriter::operator();
    void operator()(omi_BlkBitVect const & mask) const {
        cow_List<cow_String> blocks;
        utl_BlkBitUtils::GetMaskString(mask, blocks);
        target.Put(blocks);
    }
};

struct StepReader : odiC_FieldReader {
    using odiC_FieldReader::operator();
    void operator()(omi_BlkBitVect & mask) const {
        cow_List<cow_String> blocks;
        source.Get(blocks);
        utl_BlkBitUtils::GetMaskFromString(blocks, mask);
    }
};

} // namespace

odiC_StepFrameDesc::odiC_StepFrameDesc(cow_String const & label, cow_String const & description, float value1,
                                       float value2, float value3, odiC_StepDomainEnm stepDomain,
                                       cow_String const & defaultFrame, cow_List<cow_String> const & labelsOfFrames,
                                       cow_List<float> const & valuesOfFrames, omi_BlkBitVect const & maskOfFrames,
                                       bool flag)
    : stepLabel(label), stepDescription(description), stepValue1(value1), stepValue2(value2), stepValue3(value3),
      domain(stepDomain), stepFlag(flag), defaultFrameLabel(defaultFrame), frameLabels(labelsOfFrames),
      frameValues(valuesOfFrames), frameMask(maskOfFrames) {}

template <class Visit, class Self> void odiC_StepFrameDesc::forEachField(Visit visit, Self & self) {
    visit(self.stepLabel);
    visit(self.stepDescription);
    visit(self.stepValue1);
    visit(self.stepValue2);
    visit(self.stepValue3);
    visit(self.domain);
    visit(self.defaultFrameLabel);
    visit(self.frameLabels);
    visit(self.frameValues);
    visit(self.stepFlag);
    visit(self.frameMask);
}

int odiC_StepFrameDesc::DefFrameId() const {
    constexpr int noFrame = -99;
    int const found = frameLabels.FindMember(defaultFrameLabel);
    return found < 0 ? noFrame : found;
}

bool odiC_StepFrameDesc::operator==(odiC_StepFrameDesc const & other) const {
    return this == &other ||
           (stepLabel == other.stepLabel && stepDescription == other.stepDescription &&
            stepValue1 == other.stepValue1 && stepValue2 == other.stepValue2 && stepValue3 == other.stepValue3 &&
            domain == other.domain && defaultFrameLabel == other.defaultFrameLabel &&
            frameLabels.IsEqual(other.frameLabels) && frameValues.IsEqual(other.frameValues) &&
            frameMask == other.frameMask && stepFlag == other.stepFlag);
}

omu_PrimTuple * odiC_StepFrameDesc::PackTuple() const {
    int fields = 0;
    forEachField([&fields](auto const &) { ++fields; }, *this);
    auto tuple = odiC_newTuple(fields);
    forEachField(StepWriter{{*tuple}}, *this);
    return tuple.release();
}

odiC_StepFrameDesc odiC_StepFrameDesc::UnpackTuple(omu_PrimTuple & tuple) {
    odiC_StepFrameDesc step;
    tuple.Begin();
    forEachField(StepReader{{tuple}}, step);
    tuple.End("");
    return step;
}
