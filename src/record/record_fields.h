// The fields of the record as a list of names and members, for those who find a field by its name.
#pragma once

#include <string_view>
#include <tuple>

#include "record/design_record.h"

namespace torvale {

// A field of the record: its name, and where it stands.
template <typename T>
struct RecordField {
  std::string_view name;
  T DesignRecord::*member;
};

// A field of one of the record's layers is a field of the record.
template <typename T, typename Layer>
RecordField(std::string_view, T Layer::*) -> RecordField<T>;

// Every field of the record by its name, in the order in which a transcript shows them.
inline constexpr std::tuple kRecordFields = {RecordField{"DesignType", &DesignRecord::DesignType},
                                             RecordField{"PipeKind", &DesignRecord::PipeKind},
                                             RecordField{"SurveyRows", &DesignRecord::SurveyRows},
                                             RecordField{"HoleRows", &DesignRecord::HoleRows},
                                             RecordField{"WateredFurrows", &DesignRecord::WateredFurrows},
                                             RecordField{"FileVersion", &DesignRecord::FileVersion},
                                             RecordField{"TargetGPM", &DesignRecord::TargetGPM},
                                             RecordField{"HazenWilliamsC", &DesignRecord::HazenWilliamsC},
                                             RecordField{"DischargeCoef", &DesignRecord::DischargeCoef},
                                             RecordField{"LowQuarter", &DesignRecord::LowQuarter},
                                             RecordField{"SeedEndHead", &DesignRecord::SeedEndHead},
                                             RecordField{"ManualTargetHead", &DesignRecord::ManualTargetHead},
                                             RecordField{"BestHeadFound", &DesignRecord::BestHeadFound},
                                             RecordField{"DesignOK", &DesignRecord::DesignOK},
                                             RecordField{"CancelFlag", &DesignRecord::CancelFlag},
                                             RecordField{"MissingData", &DesignRecord::MissingData},
                                             RecordField{"SpacingWarningOff", &DesignRecord::SpacingWarningOff},
                                             RecordField{"CalcProblem", &DesignRecord::CalcProblem},
                                             RecordField{"FlowCalcStatus", &DesignRecord::FlowCalcStatus},
                                             RecordField{"Station", &DesignRecord::Station},
                                             RecordField{"HolesPerFurrow", &DesignRecord::HolesPerFurrow},
                                             RecordField{"PastReach", &DesignRecord::PastReach},
                                             RecordField{"HoleDia", &DesignRecord::HoleDia},
                                             RecordField{"SurveyHoleDia", &DesignRecord::SurveyHoleDia},
                                             RecordField{"HoleSpacing", &DesignRecord::HoleSpacing},
                                             RecordField{"PlantedWidth", &DesignRecord::PlantedWidth},
                                             RecordField{"PipeDia", &DesignRecord::PipeDia},
                                             RecordField{"PipeArea", &DesignRecord::PipeArea},
                                             RecordField{"MilText", &DesignRecord::MilText},
                                             RecordField{"FurrowLength", &DesignRecord::FurrowLength},
                                             RecordField{"CrownElev", &DesignRecord::CrownElev},
                                             RecordField{"DesignElev", &DesignRecord::DesignElev},
                                             RecordField{"ReservedRowValue", &DesignRecord::ReservedRowValue},
                                             RecordField{"ReservedRowValue2", &DesignRecord::ReservedRowValue2},
                                             RecordField{"ElevByFoot", &DesignRecord::ElevByFoot},
                                             RecordField{"FurrowLengthByFoot", &DesignRecord::FurrowLengthByFoot},
                                             RecordField{"Head", &DesignRecord::Head},
                                             RecordField{"HoleArea", &DesignRecord::HoleArea},
                                             RecordField{"FurrowFlow", &DesignRecord::FurrowFlow},
                                             RecordField{"FurrowNumber", &DesignRecord::FurrowNumber},
                                             RecordField{"FlowRatio", &DesignRecord::FlowRatio},
                                             RecordField{"RequiredFlow", &DesignRecord::RequiredFlow},
                                             RecordField{"ComputerHoleDia", &DesignRecord::ComputerHoleDia},
                                             RecordField{"LimitedHoleDia", &DesignRecord::LimitedHoleDia},
                                             RecordField{"HoleSizeIdeal", &DesignRecord::HoleSizeIdeal},
                                             RecordField{"FrictionLoss", &DesignRecord::FrictionLoss},
                                             RecordField{"DisplayHoleNumber", &DesignRecord::DisplayHoleNumber},
                                             RecordField{"NormFurrowFlow", &DesignRecord::NormFurrowFlow},
                                             RecordField{"NormFurrowLength", &DesignRecord::NormFurrowLength},
                                             RecordField{"AccumGPM", &DesignRecord::AccumGPM},
                                             RecordField{"AverageFurrowFlow", &DesignRecord::AverageFurrowFlow},
                                             RecordField{"TotalFurrowLength", &DesignRecord::TotalFurrowLength},
                                             RecordField{"TotalAcres", &DesignRecord::TotalAcres},
                                             RecordField{"MaxHead", &DesignRecord::MaxHead},
                                             RecordField{"MinHead", &DesignRecord::MinHead},
                                             RecordField{"MaxHeadStation", &DesignRecord::MaxHeadStation},
                                             RecordField{"MinHeadStation", &DesignRecord::MinHeadStation},
                                             RecordField{"MaxFurrowFlow", &DesignRecord::MaxFurrowFlow},
                                             RecordField{"MinFurrowFlow", &DesignRecord::MinFurrowFlow},
                                             RecordField{"Uniformity", &DesignRecord::Uniformity},
                                             RecordField{"BestUniformity", &DesignRecord::BestUniformity},
                                             RecordField{"CrownSlope", &DesignRecord::CrownSlope},
                                             RecordField{"SlopeDelta", &DesignRecord::SlopeDelta},
                                             RecordField{"DualBreakStation", &DesignRecord::DualBreakStation},
                                             RecordField{"HighestFill", &DesignRecord::HighestFill},
                                             RecordField{"HoursHalfInch", &DesignRecord::HoursHalfInch},
                                             RecordField{"HoursOneInch", &DesignRecord::HoursOneInch},
                                             RecordField{"HoursOneHalfInch", &DesignRecord::HoursOneHalfInch},
                                             RecordField{"HoursTwoInch", &DesignRecord::HoursTwoInch},
                                             RecordField{"HoursThreeInch", &DesignRecord::HoursThreeInch},
                                             RecordField{"HoleSizeName", &DesignRecord::HoleSizeName},
                                             RecordField{"HoleSizeValue", &DesignRecord::HoleSizeValue},
                                             RecordField{"SelectedHoleName", &DesignRecord::SelectedHoleName},
                                             RecordField{"SelectedHoleValue", &DesignRecord::SelectedHoleValue},
                                             RecordField{"HoleSizeIndexLimit", &DesignRecord::HoleSizeIndexLimit},
                                             RecordField{"HoleSumStations", &DesignRecord::HoleSumStations},
                                             RecordField{"HoleSumSeparator", &DesignRecord::HoleSumSeparator},
                                             RecordField{"HoleSumLengths", &DesignRecord::HoleSumLengths},
                                             RecordField{"HoleSumCounts", &DesignRecord::HoleSumCounts},
                                             RecordField{"HoleSumFurrowText", &DesignRecord::HoleSumFurrowText},
                                             RecordField{"HoleSumFromLength", &DesignRecord::HoleSumFromLength},
                                             RecordField{"HoleSumToLength", &DesignRecord::HoleSumToLength},
                                             RecordField{"HoleSumCount", &DesignRecord::HoleSumCount},
                                             RecordField{"ProfileScale", &DesignRecord::ProfileScale},
                                             RecordField{"ProfileTitle", &DesignRecord::ProfileTitle},
                                             RecordField{"SoilName", &DesignRecord::SoilName},
                                             RecordField{"RecFurrowFlow", &DesignRecord::RecFurrowFlow},
                                             RecordField{"SoilNames", &DesignRecord::SoilNames},
                                             RecordField{"SoilFurrowFlow", &DesignRecord::SoilFurrowFlow},
                                             RecordField{"SaveFileName", &DesignRecord::SaveFileName},
                                             RecordField{"OpenedFileName", &DesignRecord::OpenedFileName},
                                             RecordField{"DisplayFileName", &DesignRecord::DisplayFileName},
                                             RecordField{"RecentFiles", &DesignRecord::RecentFiles},
                                             RecordField{"PasteRow1", &DesignRecord::PasteRow1},
                                             RecordField{"PasteCol1", &DesignRecord::PasteCol1},
                                             RecordField{"PasteRows", &DesignRecord::PasteRows},
                                             RecordField{"PasteCols", &DesignRecord::PasteCols},
                                             RecordField{"GridClipboard", &DesignRecord::GridClipboard},
                                             RecordField{"StationInterval", &DesignRecord::StationInterval}};

// Calls `work` with every RecordField in order.
template <typename Work>
void ForEachRecordField(Work&& work) {
  std::apply([&](const auto&... field) { (work(field), ...); }, kRecordFields);
}

// Calls `work` with the RecordField of that name. False where there is none.
template <typename Work>
bool WithRecordField(std::string_view name, Work&& work) {
  return std::apply([&](const auto&... field) { return ((field.name == name && (work(field), true)) || ...); },
                    kRecordFields);
}

}  // namespace torvale
