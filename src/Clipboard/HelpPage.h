#pragma once

class Workspace;

/// Opens the help page that is installed with the program in the desktop's browser, and logs
/// whether its address could be built and was opened.
void openHelpPage(Workspace &workspace);
