// File names that stand for something else than a file on a disk of this machine.
//
//   is_no_file(L"C:\\Lessen\\NUL.tbl")               // true: the system opens a device
//   is_on_another_host(L"\\\\server\\les\\a.tbl")    // true: opening it speaks to that host
#pragma once

#include <string>
#include <string_view>

namespace tabulon::activex {

// Devices (NUL, COM1, with or without an extension), the folders of all devices, pipes, and streams beside a
// file's contents. Every part of the name is looked at, not the last alone: old systems differ in which of
// them counts.
bool is_no_file(const std::wstring& name);

// By the folder of the program where the name has none. A drive that the person has connected counts as this
// machine.
bool is_on_another_host(const std::wstring& name);

}  // namespace tabulon::activex
