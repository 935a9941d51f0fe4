#include "tests/support/RecordSizes.h"

#include "module/HostMessages.h"

// Plain numbers: this table is the second view of the sizes.
RecordSizes recordSizes(unsigned message) {
    switch (message) {
    case ToHost::RegisterInterface:
    case ToHost::FindInterface:
    case ToHost::CountInterfaces:
        return {773, 0};
    case ToHost::InterfaceNames:
        return {0, 773};
    case ToHost::CreateObject:
        return {806, 0};
    case ToHost::Subscribe:
    case ToHost::Unsubscribe:
        return {0, 8};
    case ToHost::WindowGoesAway:
        return {8, 0};
    case ToHost::InsertText:
        return {3072, 0};
    case ToHost::SystemNumber:
    case ToHost::OutputCount:
    case ToHost::SourceCount:
    case ToHost::InterfaceOfObject:
    case ToHost::LinkCount:
    case ToHost::LineNumberOfArray:
    case ToHost::ObjectOfNumber:
    case ToHost::ConfirmObject:
    case ToHost::BaseObject:
    case ToHost::OwnerLineNumber:
        return {0, 4};
    case ToHost::OutputArrays:
    case ToHost::HandOverSources:
    case ToHost::Links:
    case ToHost::FullPath:
    case ToHost::BindLoadedLine:
        return {0, 8};
    case ToHost::Identity:
        return {0, 1555};
    case ToHost::HorizontalLevels:
        return {0, 268};
    case ToHost::AttachLineStudy:
    case ToHost::CountLineStudies:
        return {0, 12};
    case ToHost::ListLineStudies:
        return {0, 16};
    case ToHost::OpenAlert:
        return {776, 0};
    case ToHost::SubscribeEvent:
        return {271, 0};
    case ToHost::UnsubscribeEvent:
        return {8, 0};
    case ToHost::CreateEvent:
        return {259, 0};
    case ToHost::EmitEvent:
        return {0, 542};
    case ToHost::LanguageCount:
    case ToHost::Languages:
        return {8, 0};
    case ToHost::SourcePeriod:
        return {0, 9};
    case ToHost::ApplicationCaption:
    case ToHost::OpenHelp:
        return {2048, 0};
    case ToHost::FolderPath:
        return {2052, 0};
    case ToHost::ChangeArray:
        return {0, 774};
    case ToHost::DisplayNames:
        return {0, 2040};
    case ToHost::MenuText:
        return {0, 510};
    case ToHost::LogWriter:
        return {4, 0};
    case ToHost::DateFormatters:
        return {8, 0};
    case ToHost::ToolButtonState:
        return {264, 0};
    case ToHost::WorkFolder:
        return {12288, 0};
    case ToHost::HasWorkFolder:
        return {4, 0};
    case ToHost::DealingRequest:
        return {12, 0};
    case ToHost::ZoomInButton:
    case ToHost::ZoomOutButton:
    case ToHost::ZoomSlider:
    case ToHost::LastCandleButton:
    case ToHost::InformationBoxButton:
    case ToHost::CrossCursor:
        return {0, 4};
    case ToHost::LocatorFunction:
        return {4, 0};
    case ToHost::SymbolDisplayName:
        return {2040, 0};
    case ToHost::StudyCreate:
        return {275, 0};
    case ToHost::StudyControlPointCount:
    case ToHost::StudyShapeCount:
    case ToHost::StudyPrecision:
        return {0, 4};
    case ToHost::StudyShapeSizes:
        return {0, 8};
    case ToHost::StudyCompute:
        return {0, 32};
    case ToHost::StudyNames:
        return {0, 1279};
    case ToHost::StudyFocus:
        return {9, 0};
    case ToHost::Milestone:
        return {259, 0};
    case ToHost::CaptionChanged:
        return {8, 510};
    case ToHost::IndicatorCount:
        return {4, 0};
    case ToHost::IndicatorList:
        return {8, 0};
    case ToHost::IndicatorNeedsSource:
        return {774, 4};
    case ToHost::StatusPane:
    case ToHost::StatusPaneAgain:
        return {24, 0};
    case ToHost::ShowNewPage:
    case ToHost::ShowKnownPage:
    case ToHost::ClosePage:
        return {4626, 0};
    case ToHost::IsPageKnown:
        return {4626, 4};
    case ToHost::PageItemChanged:
        return {4626, 2582};
    case ToHost::ReportSymbols:
        return {0, 8};
    case ToHost::AccountCount:
        return {4, 0};
    case ToHost::Accounts:
        return {8, 0};
    case ToHost::PositionCount:
    case ToHost::OrderCount:
        return {0, 4};
    case ToHost::Positions:
    case ToHost::Orders:
    case ToHost::DayOffCount:
    case ToHost::DayOffSymbols:
        return {0, 8};
    case ToHost::ChangeOrder:
        return {40, 0};
    case ToHost::ChangePosition:
        return {36, 0};
    case ToHost::AccountSettings:
        return {0, 20};
    default:
        return {};
    }
}
