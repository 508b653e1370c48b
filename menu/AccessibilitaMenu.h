#pragma once

// The interfaces through which a screen reader reads the menu: its options
// are radio buttons that tell whether they are on, its exit panel is an
// alert with the question in the current language.
void InstallaAccessibilitaMenu();
