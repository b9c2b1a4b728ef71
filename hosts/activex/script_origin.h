// Where a script comes from that uses the control: a program of this machine, or a page in a browser. What
// shows pages tells it through the control's site, and the system says which zone a page belongs to.
//
//   const ScriptOrigin origin = origin_of(site.get());
//   if (origin == ScriptOrigin::OtherPage) return fail(ErrorNumber::PermissionDenied);
#pragma once

#include <windows.h>

#include <unknwn.h>

#include <cstdint>

namespace tabulon::activex {

enum class ScriptOrigin : std::uint8_t {
  Program,      // no browser is there
  TrustedPage,  // of this machine, the intranet or the trusted sites
  OtherPage,    // of any other zone, or of one that nobody can tell
};

// Null is a program, which has made the control without a site. Every sign of a browser must tell a trusted
// zone.
ScriptOrigin origin_of(IUnknown* site);

}  // namespace tabulon::activex
