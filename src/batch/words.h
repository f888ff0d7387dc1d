// What the front end for many fields says of what it can't do: every complaint that it puts on standard error or into
// the table of results in words of its own, each under its name. Where it puts something in stands "{}". What the
// program itself says of a design comes out of screen/words.h.
#pragma once

#include "screen/spoken.h"

namespace torvale::batch_words {

// ---- any table ----

inline constexpr Complaint<0> kQuoteNotClosed{"a quote is not closed"};
inline constexpr Complaint<0> kTextBehindQuote{"text follows a closing quote"};
inline constexpr Complaint<2> kReadAs{"\"{}\" is read as {}"};
inline constexpr Complaint<1> kReadAsEndless{"\"{}\" is read as a number without end"};

// ---- the table of fields ----

inline constexpr Complaint<0> kNoFields{"the table is empty"};
inline constexpr Complaint<1> kNoSuchColumn{"no column of fields is called \"{}\""};
inline constexpr Complaint<2> kColumnTwice{"\"{}\" stands in column {} too"};
inline constexpr Complaint<1> kCellWithoutHeading{"\"{}\" stands in a column without a heading"};
inline constexpr Complaint<1> kNoSuchDesign{"no design is called \"{}\""};
inline constexpr Complaint<6> kNoSuchLetter{"{} is {} for {} or {} for {}, not \"{}\""};
inline constexpr Complaint<1> kNoSuchLayout{"the layout is sheet, PNEZ or PENZ, not \"{}\""};
inline constexpr Complaint<0> kNoSurvey{"the field names no survey"};

// ---- what a field asks for ----

inline constexpr Complaint<1> kRowOfTheTable{"row {} of the table"};
inline constexpr Complaint<2> kTakenAs{"\"{}\" is taken as {}"};
inline constexpr Complaint<1> kNumberTooLarge{"\"{}\" is a larger number than the program holds"};
inline constexpr Complaint<1> kNoHoleSize{"\"{}\" is no size of the hole size table"};
inline constexpr Complaint<1> kNoListOfSoils{
    "there is no list of soils to find \"{}\" in: name its folder with --data"};
inline constexpr Complaint<1> kNoSuchSoil{"the list of soils has no \"{}\""};

// ---- a survey ----

inline constexpr Complaint<0> kSurveyEmpty{"the survey is empty"};
inline constexpr Complaint<1> kSheetIsFull{"the survey sheet has {} rows"};
inline constexpr Complaint<1> kColumnsAlike{"two columns are the sheet's \"{}\""};
inline constexpr Complaint<0> kNoStations{"no heading says which column holds the station"};
inline constexpr Complaint<0> kNoReadings{"no heading says which column holds the elevation or rod reading"};
inline constexpr Complaint<1> kNoNumber{"\"{}\" is no number"};
inline constexpr Complaint<0> kPointOutOfReach{"the point is out of reach"};

// ---- a run ----

inline constexpr Complaint<1> kNoSuchPart{"a part is I/N, I from 1 to N, not {}"};
inline constexpr Complaint<0> kDesignOutOfTime{"The design took longer than the limit."};
inline constexpr Complaint<0> kFieldGivenUp{"The field did not end; it was given up."};
inline constexpr Complaint<2> kStopped{"stopped: {} of {} fields are done; the same command goes on from there"};
inline constexpr Complaint<0> kNotWritten{"can't be written"};

// ---- tables of results joined ----

inline constexpr Complaint<0> kNoResults{"no table of results of this version"};
inline constexpr Complaint<1> kNoFieldNumber{"\"{}\" is no number of a field"};
inline constexpr Complaint<1> kFieldTwice{"field {} stands in more than one table"};
inline constexpr Complaint<0> kFieldMissing{"1 field before the last one is in none of the tables"};
inline constexpr Complaint<1> kFieldsMissing{"{} fields before the last one are in none of the tables"};

}  // namespace torvale::batch_words
