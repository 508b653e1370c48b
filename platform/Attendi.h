#pragma once

#include <functional>

// The game's only delay: waits the given seconds while events go on being
// handled, so that screens stay live during the wait. The end is measured on
// a clock of seconds since midnight, as it always was, so a wait whose end
// lies past midnight never ends.
void Attendi(double secondi);

// The clock Attendi reads: seconds since midnight.
double SecondiDallaMezzanotte();

// For tests: scale every wait (0.01 makes a second 10 ms), put a clock in
// place of the real one, and end the waits that are running.
void ImpostaScalaAttesa(double scala);
void ImpostaOrologioPerProve(std::function<double()> orologio);
void InterrompiAttesePerProve();
int AtteseInCorso();
