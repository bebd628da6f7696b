#pragma once

namespace armour {

// Each plays in the current directory, where Kestra.dll and its settings lie.
void TheWatchSeesDamage();
void EveryExportIsInTheTable();
void ADayWithAPrinter();
void ADayWithoutAPrinter();
void ADayWithoutSettings();
void Numbers();
void BadPointers();
void BadPointersForResults();
void Callbacks();
void AbandonedCalls();
void FirstCallsAtOnce();
void LoadingKeepsTheUnits();
void LoadingFromManyThreads();
void LoadingTwice();
void LeavingWithoutAGoodbye();
void LeavingThreadsBehind();
void EndingWithoutAGoodbye();
void EndingInMidCall();

}  // namespace armour
