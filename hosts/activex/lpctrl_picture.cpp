// The control's picture, for where it has no windows: on paper, on a form in a designer.
#include <algorithm>
#include <cmath>

#include "hosts/activex/lpctrl_object.h"
#include "hosts/activex/surface_picture.h"

namespace tabulon::activex {

namespace {

// Switches a device context to pixels and clips it to a box, until the end of its scope.
class Clipped {
 public:
  // `box` is in the context's logical units, and is converted to pixels.
  Clipped(HDC dc, RECT& box) : dc_(dc), before_(SaveDC(dc)) {
    const DWORD kind = GetObjectType(dc);
    const bool is_record =
        kind == OBJ_METADC || kind == OBJ_ENHMETADC;  // its units are decided when it is played
    if (!is_record) {
      LPtoDP(dc, reinterpret_cast<POINT*>(&box), 2);
      ModifyWorldTransform(dc, nullptr, MWT_IDENTITY);
      SetMapMode(dc, MM_TEXT);
      SetWindowOrgEx(dc, 0, 0, nullptr);
      SetViewportOrgEx(dc, 0, 0, nullptr);
    }
    box = {std::min(box.left, box.right), std::min(box.top, box.bottom), std::max(box.left, box.right),
           std::max(box.top, box.bottom)};
    IntersectClipRect(dc, box.left, box.top, box.right, box.bottom);
  }
  Clipped(const Clipped&) = delete;
  ~Clipped() { RestoreDC(dc_, before_); }

 private:
  HDC dc_;
  int before_;
};

// Far beyond the resolution of any screen or printer, and the size of any font.
constexpr double finest = 10'000;

// The density at which the control is as wide as the box.
double dpi_that_fills(const RECT& box) {
  constexpr double twips_per_inch = 1440;
  return std::round((static_cast<double>(box.right) - box.left) * twips_per_inch / LPctrl::fixed_width);
}

}  // namespace

STDMETHODIMP LPctrlObject::Draw(DWORD aspect, LONG, void*, DVTARGETDEVICE*, HDC, HDC dc, LPCRECTL bounds,
                                LPCRECTL, BOOL(STDMETHODCALLTYPE*)(ULONG_PTR), ULONG_PTR) {
  if (aspect != DVASPECT_CONTENT) return DV_E_DVASPECT;
  if (!dc || !bounds) return E_INVALIDARG;
  RECT box{bounds->left, bounds->top, bounds->right, bounds->bottom};
  const Clipped clipped(dc, box);
  const double dpi = dpi_that_fills(box);
  if (dpi > finest) return E_INVALIDARG;
  if (dpi >= 1) paint_surface(dc, control_, {box.left, box.top}, static_cast<int>(dpi));
  return S_OK;
}

STDMETHODIMP LPctrlObject::GetColorSet(DWORD, LONG, void*, DVTARGETDEVICE*, HDC, LOGPALETTE** out) {
  if (!out) return E_POINTER;
  *out = nullptr;
  return S_FALSE;
}

STDMETHODIMP LPctrlObject::SetAdvise(DWORD aspects, DWORD flags, IAdviseSink* sink) {
  picture_sink_ = ComPtr<IAdviseSink>(sink);
  picture_aspects_ = aspects;
  picture_flags_ = flags;
  if (flags & ADVF_PRIMEFIRST) picture_changed();
  return S_OK;
}

STDMETHODIMP LPctrlObject::GetAdvise(DWORD* aspects, DWORD* flags, IAdviseSink** sink) {
  if (aspects) *aspects = picture_aspects_;
  if (flags) *flags = picture_flags_;
  if (sink) *sink = ComPtr(picture_sink_).detach();
  return S_OK;
}

STDMETHODIMP LPctrlObject::GetExtent(DWORD aspect, LONG, DVTARGETDEVICE*, SIZEL* size) {
  return GetExtent(aspect, size);
}

void LPctrlObject::picture_changed() {
  if (!(picture_aspects_ & DVASPECT_CONTENT)) return;
  const ComPtr<IAdviseSink> sink = picture_sink_;
  if (picture_flags_ & ADVF_ONLYONCE) picture_sink_ = {};
  if (sink) sink->OnViewChange(DVASPECT_CONTENT, -1);
}

}  // namespace tabulon::activex
