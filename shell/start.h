// What happens between the start of the program and its main window.
#pragma once

// Loads what the settings name and makes what outlives the main window, in the order in which each step needs
// the ones before. False if no language can be used, which the user has been told then.
bool InitializeApplication();
