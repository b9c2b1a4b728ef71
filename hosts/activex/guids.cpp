// Defines the IDs declared by Tabulon.idl.
#include <windows.h>

#include <initguid.h>

#include <Tabulon_idl.h>
