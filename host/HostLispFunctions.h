// The host's Lisp functions that the module calls by name, as qen-host provides them on
// its drawing, its favourites folder and its object library.
#pragma once

// Registers them with the platform's application object.
void hostRegisterLispFunctions();
