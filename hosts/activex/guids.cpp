// The numbers of Tabulon.idl, defined once.
#include <windows.h>

#include <initguid.h>

#include <Tabulon_idl.h>
