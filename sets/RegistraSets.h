#pragma once

// The four set editors, under their screen names.
void RegistraSchermiSets();
