#include "script/record_fields.h"

#include <algorithm>

namespace torvale {
namespace {

constexpr RecordField kFields[] = {
    {"DesignType", &DesignRecord::DesignType},
    {"PipeKind", &DesignRecord::PipeKind},
    {"SurveyRows", &DesignRecord::SurveyRows},
    {"HoleRows", &DesignRecord::HoleRows},
    {"WateredFurrows", &DesignRecord::WateredFurrows},
    {"FileVersion", &DesignRecord::FileVersion},
    {"TargetGPM", &DesignRecord::TargetGPM},
    {"HazenWilliamsC", &DesignRecord::HazenWilliamsC},
    {"DischargeCoef", &DesignRecord::DischargeCoef},
    {"LowQuarter", &DesignRecord::LowQuarter},
    {"SeedEndHead", &DesignRecord::SeedEndHead},
    {"ManualTargetHead", &DesignRecord::ManualTargetHead},
    {"BestHeadFound", &DesignRecord::BestHeadFound},
    {"DesignOK", &DesignRecord::DesignOK},
    {"CancelFlag", &DesignRecord::CancelFlag},
    {"MissingData", &DesignRecord::MissingData},
    {"SpacingWarningOff", &DesignRecord::SpacingWarningOff},
    {"CalcProblem", &DesignRecord::CalcProblem},
    {"FlowCalcStatus", &DesignRecord::FlowCalcStatus},
    {"Station", &DesignRecord::Station},
    {"HolesPerFurrow", &DesignRecord::HolesPerFurrow},
    {"PastReach", &DesignRecord::PastReach},
    {"HoleDia", &DesignRecord::HoleDia},
    {"SurveyHoleDia", &DesignRecord::SurveyHoleDia},
    {"HoleSpacing", &DesignRecord::HoleSpacing},
    {"PlantedWidth", &DesignRecord::PlantedWidth},
    {"PipeDia", &DesignRecord::PipeDia},
    {"PipeArea", &DesignRecord::PipeArea},
    {"MilText", &DesignRecord::MilText},
    {"FurrowLength", &DesignRecord::FurrowLength},
    {"CrownElev", &DesignRecord::CrownElev},
    {"DesignElev", &DesignRecord::DesignElev},
    {"ReservedRowValue", &DesignRecord::ReservedRowValue},
    {"ReservedRowValue2", &DesignRecord::ReservedRowValue2},
    {"ElevByFoot", &DesignRecord::ElevByFoot},
    {"FurrowLengthByFoot", &DesignRecord::FurrowLengthByFoot},
    {"Head", &DesignRecord::Head},
    {"HoleArea", &DesignRecord::HoleArea},
    {"FurrowFlow", &DesignRecord::FurrowFlow},
    {"FurrowNumber", &DesignRecord::FurrowNumber},
    {"FlowRatio", &DesignRecord::FlowRatio},
    {"RequiredFlow", &DesignRecord::RequiredFlow},
    {"ComputerHoleDia", &DesignRecord::ComputerHoleDia},
    {"LimitedHoleDia", &DesignRecord::LimitedHoleDia},
    {"HoleSizeIdeal", &DesignRecord::HoleSizeIdeal},
    {"FrictionLoss", &DesignRecord::FrictionLoss},
    {"DisplayHoleNumber", &DesignRecord::DisplayHoleNumber},
    {"NormFurrowFlow", &DesignRecord::NormFurrowFlow},
    {"NormFurrowLength", &DesignRecord::NormFurrowLength},
    {"AccumGPM", &DesignRecord::AccumGPM},
    {"AverageFurrowFlow", &DesignRecord::AverageFurrowFlow},
    {"TotalFurrowLength", &DesignRecord::TotalFurrowLength},
    {"TotalAcres", &DesignRecord::TotalAcres},
    {"MaxHead", &DesignRecord::MaxHead},
    {"MinHead", &DesignRecord::MinHead},
    {"MaxHeadStation", &DesignRecord::MaxHeadStation},
    {"MinHeadStation", &DesignRecord::MinHeadStation},
    {"MaxFurrowFlow", &DesignRecord::MaxFurrowFlow},
    {"MinFurrowFlow", &DesignRecord::MinFurrowFlow},
    {"Uniformity", &DesignRecord::Uniformity},
    {"BestUniformity", &DesignRecord::BestUniformity},
    {"CrownSlope", &DesignRecord::CrownSlope},
    {"SlopeDelta", &DesignRecord::SlopeDelta},
    {"DualBreakStation", &DesignRecord::DualBreakStation},
    {"HighestFill", &DesignRecord::HighestFill},
    {"HoursHalfInch", &DesignRecord::HoursHalfInch},
    {"HoursOneInch", &DesignRecord::HoursOneInch},
    {"HoursOneHalfInch", &DesignRecord::HoursOneHalfInch},
    {"HoursTwoInch", &DesignRecord::HoursTwoInch},
    {"HoursThreeInch", &DesignRecord::HoursThreeInch},
    {"HoleSizeName", &DesignRecord::HoleSizeName},
    {"HoleSizeValue", &DesignRecord::HoleSizeValue},
    {"SelectedHoleName", &DesignRecord::SelectedHoleName},
    {"SelectedHoleValue", &DesignRecord::SelectedHoleValue},
    {"HoleSizeIndexLimit", &DesignRecord::HoleSizeIndexLimit},
    {"HoleSumStations", &DesignRecord::HoleSumStations},
    {"HoleSumSeparator", &DesignRecord::HoleSumSeparator},
    {"HoleSumLengths", &DesignRecord::HoleSumLengths},
    {"HoleSumCounts", &DesignRecord::HoleSumCounts},
    {"HoleSumFurrowText", &DesignRecord::HoleSumFurrowText},
    {"HoleSumCount", &DesignRecord::HoleSumCount},
    {"StationInterval", &DesignRecord::StationInterval},
};

}  // namespace

std::span<const RecordField> RecordFields() {
  return kFields;
}

const RecordField* FindRecordField(std::string_view name) {
  const auto fields = RecordFields();
  const auto found = std::find_if(fields.begin(), fields.end(), [&](const RecordField& f) { return f.name == name; });
  return found == fields.end() ? nullptr : &*found;
}

}  // namespace torvale
