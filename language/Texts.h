// The two-language string table: every text of the program is looked up here when it is used.
#pragma once

#include <cstdint>
#include <initializer_list>
#include <span>
#include <string>
#include <string_view>

namespace velmora {

enum class Language : std::int16_t { English = 0, Portuguese = 1 };

/// The texts by name. Those up to 516 have the numbers by which the windows' captions are known; of
/// these only the ones that code asks for by name stand here. The others follow in the table's
/// order. Where a text has {1}, {2}, ..., `Filled` puts the arguments there.
enum class TextId : std::int16_t {
  Open = 105,
  Estimating = 107,
  GrowthKinetics = 115,
  CultivationConditions = 120,
  CpVersusTime = 125,
  CsVersusTime = 126,
  CxVersusTime = 130,
  Estimate = 143,
  Experiments = 145,
  LegendHeading = 153,
  LowerBound = 155,
  UpperBound = 156,
  Simulate = 158,
  Symbol = 159,
  ChosenModel = 163,
  No = 164,
  GraphName = 168,
  PointsNumber = 171,
  ExperimentNumber = 173,
  Results = 183,
  Save = 185,
  Yes = 186,
  FinalTime = 189,
  EstimatedParameters = 196,
  ExperimentalData = 197,
  OptionsFootnote = 300,
  NoProduction = 301,
  ParametersEstimation = 302,
  FitEntryMissing = 303,
  FitEntryOutOfBounds = 304,
  OptionsDiffer = 305,
  TheConditionsOf = 306,
  Attention = 307,
  ConditionsOf = 308,
  Confirmation = 309,
  ConfirmData = 310,
  AskToEstimate = 312,
  Error = 313,
  FileError = 314,
  AskToChangeExperiment = 315,
  CannotSaveEmpty = 316,
  AskToReplaceConditions = 317,
  DeleteExperiment = 318,
  ExperimentAlreadyAdded = 319,
  ExperimentNotSaved = 320,
  ExperimentEmpty = 321,
  AskToReplaceExperiments = 322,
  InsertedButReview = 323,
  GraphNotSelected = 324,
  Information = 325,
  SuccessfullyInserted = 326,
  BoundIsZero = 327,
  NoExperimentSaved = 328,
  NoGraphSelected = 329,
  NoConditionsAdded = 330,
  NothingToPlot = 331,
  InvalidName = 332,
  CannotBeDeleted = 334,
  NoMethod = 335,
  MinimumAboveMaximum = 336,
  CountsDiffer = 337,
  Cs0NotPositive = 338,
  Cx0NotPositive = 339,
  TimeNotPositive = 340,
  YpsNotPositive = 341,
  YxsNotPositive = 342,
  TimeTooSmall = 343,
  TimeTooLarge = 344,
  OpeningConditionsDeletes = 345,
  OpeningExperimentsDeletes = 346,
  ConfirmModel = 347,
  PossibleErrors = 348,
  ClickDelete = 349,
  OutOfBounds = 350,
  CheckVisible = 351,
  NoExperiment = 352,
  NoExperimentSelected = 353,
  NothingFitted = 354,
  AskToGiveUp = 355,
  AskToQuit = 356,
  SaveConditionsOf = 357,
  BeforeReturning = 358,
  CheckBounds = 359,
  ChangeParameters = 360,
  AskToStop = 361,
  NotCompleted = 362,
  ChangeDataSet = 402,
  Cancel = 408,
  Start = 417,
  ToEstimated = 422,
  ToInitial = 431,
  EstimatedHeading = 500,
  SumOfSquaredErrors = 501,
  SquareError = 502,
  EndOfEstimation = 503,
  DidNotConverge = 504,
  DidNotConvergeAdvice = 505,
  ReportTitle = 506,
  BatchCultivation = 507,
  NumberOfExperiments = 508,
  ConditionsOfExperiment = 509,
  InitialValues = 510,
  UpperBoundOf = 511,
  LowerBoundOf = 512,
  EstimatedVariables = 513,
  ReportedSum = 514,
  Version = 515,
  EstimatedWithDeviation = 516,

  // Why a file cannot be read or written, in the order of FileReason; {1} is the detail.
  FileCannotOpen = 600,
  FileNotRegular,
  FileCannotRead,
  FileCannotWrite,
  FileEnds,
  FileNotANumber,
  FileNotAWholeNumber,
  FileOutOfRange,
  FileMissingBar,
  FileTooManyExperiments,
  FileBadLetter,
  FileLineBreak,
  FileHoldsConditions,
  FileHoldsExperiments,
  FileUnknownChoice,
  FileFittedTwice,
  FileBadByte,

  // The items of a file, in the order of FileField; {1} is the item's number.
  FieldNone,
  FieldTitle,
  FieldExperimentCount,
  FieldExperimentNumber,
  FieldDescription,
  FieldPointCount,
  FieldFinalTime,
  FieldMarker,
  FieldLine,
  FieldColour,
  FieldVisibility,
  FieldPoint,
  FieldCondition,
  FieldOptionText,
  FieldFittedCount,
  FieldUpperBound,
  FieldLowerBound,
  FieldParameterCode,
  FieldStartValue,
  LineOfFile,

  // The kinds of arithmetic fault, in the order of FaultKind.
  DivisionByZero,
  Overflow,
  PowerWithoutValue,

  // Where an arithmetic fault arose, in the order of FaultTerm.
  InSubstratePower,
  InCellPower,
  InSubstrateInhibition,
  InSubstrateQuotient,
  InLevenspiel,
  InLee,
  InAiba,
  InHoppe,
  InCellBalance,
  InSubstrateBalance,
  InProductBalance,
  InConcentration,
  InEvaluationCount,
  InInterpolation,
  InScore,
  InDeviations,
  FaultExperiment,
  FaultPoint,
  CounterFull,

  // The end of a search.
  BestOfGeneration,
  BestOfPopulation,
  NoDeviations,
  DataDoNotDetermine,
  EvaluationLimitReached,
  StartsThatAgree,

  // Experiments and conditions.
  NumbersRepeated,
  ConditionsMissing,
  NoYields,

  // What the data look like, in the order of RemarkKind; {1} is the experiment's number, {2} the
  // row, {3} the variable.
  FallingCells,
  RisingSubstrate,
  ProductBeforeGrowth,
  YieldTooHigh,
  FirstSampleLate,
  TimesUnsorted,
  FinalTimeEarly,
  FarOff,
  LooksLikePercent,
  TooConcentrated,
  LooksLikeMinutes,
  LooksLikeDays,

  // Why values and ranges are proposed.
  FromFirstSample,
  FromLaterSample,
  FromLastSample,
  CellYield,
  ProductYield,
  SharedYield,
  YieldOfAlfa,
  NoProductYield,
  AlfaOfYields,
  ProductionRegression,
  ProductOverCells,
  BetaFromStart,
  DeathFromFall,
  DeathBelow,
  NoDeath,
  LeftOut,
  OfSteepestGrowth,
  OfHighestCs,
  OfHighestCsToU,
  OfCsOverCx,
  OfHighestCp,
  OfInverseCp,
  OfHighestCx,
  UsualExponent,

  // The windows.
  WriteWithoutEntries,
  BeforeRun,
  NoPrinter,
  PrinterRefused,
  AskToSavePdf,

  // The command line.
  NotANumber,
  DecimalComma,
  Negative,
  Malformed,
  UnknownName,
  UnknownModel,
  NoSuchPlace,
  SetAndFitted,
  FittedTwice,
  FitWithManual,
  SettingOfED,
  SameFile,
  SeeHelp,
  NoSuchCommand,

  // Rules that only the command line has.
  ModelLacks,
  ValueMissing,
  ValueNotSet,
  ModelNotTold,
  AlfaDecided,
  BetaNotOffered,
  TooManyExperiments,
  NumbersDiffer,
  SimulationOnly,
  NoPoints,
  NoSuchLabel,
  InExperiment,

  // Tables from a spreadsheet.
  LabelMissing,
  NotUtf8,
  NoHeader,
  MissingColumn,
  ColumnTwice,
  NoRows,
  BadQuote,
  TooManyCells,
  AtCell,
  CellEmpty,
  CellNotANumber,
  CellNegative,
  CellMixedMarks,
  LabelUnfit,
  TooManyPoints,
  TooManyInTable,

  // What the commands print.
  ModelHeading,
  ParametersHeading,
  EquationHeading,
  ExperimentColumn,
  ExperimentHeading,
  ExperimentsWithValues,
  Generations,
  GenerationLine,
  StartScore,
  WorseThanStart,
  StartLine,
  Score,
  Sum,
  UnscaledAt,
  IsExperiments,
  IsConditions,
  NoBatchLine,
  NeitherFile,
  ExperimentsWanted,
  ConditionsWanted,
  ExperimentLine,
  ConditionsLine,
  NoCatalogueModel,
  GlobalYields,
  StoichiometricYields,
  FittedLine,
  NoParameterFitted,
  ProposedLine,
  ProposedLineAt,
  ProposedFit,
  Written,

  // The machine.
  OutputFailed,
  NoCharts,
  OutOfMemory,
  OutOfMemoryInFit,
};

/// The distance between the id of an English text and the id of its Portuguese partner.
inline constexpr std::int16_t kPortugueseOffset = 900;

/// The text at the place of `value` behind `first`, where the texts of an enumeration stand in its
/// order.
template <class Enumeration>
constexpr TextId TextOf(TextId first, Enumeration value) {
  return TextId{static_cast<std::int16_t>(static_cast<int>(first) + static_cast<int>(value))};
}

/// Whether the table holds a text with this number.
bool HasText(TextId id);

/// The text (UTF-8) of `id`, blanks and "&" marks included. The table must hold it.
std::string_view Text(TextId id, Language language);

/// The text with {1}, {2}, ... replaced by the arguments.
std::string Filled(TextId id, Language language, std::span<const std::string_view> arguments);
inline std::string Filled(TextId id, Language language,
                          std::initializer_list<std::string_view> arguments) {
  return Filled(id, language, {arguments.begin(), arguments.size()});
}

/// `text` with line breaks and runs of blanks each made one blank, none at the ends.
std::string OnOneLine(std::string_view text);

}  // namespace velmora
