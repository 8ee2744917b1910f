// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
// Pen input on Windows: pointer messages of the pen are caught in the viewport's window
// procedure and turned into tablet events, and the pen is given a cursor of its own,
// because the system shows no Qt cursor for pen input over this window.
#include "canvas/graphics-view.h"

#include <QImage>
#include <QMouseEvent>
#include <QPixmap>
#include <QTabletEvent>
#include <algorithm>
#include <cstring>

namespace pallo {

namespace {

using GetPointerPenInfoFn = BOOL(WINAPI*)(UINT32, POINTER_PEN_INFO*);

GetPointerPenInfoFn pointerPenInfoFunction()
{
    static bool looked = false;
    static GetPointerPenInfoFn function = nullptr;
    if (!looked) {
        looked = true;
        if (HMODULE user32 = GetModuleHandleA("user32.dll"))
            function = reinterpret_cast<GetPointerPenInfoFn>(
                reinterpret_cast<void*>(GetProcAddress(user32, "GetPointerPenInfo")));
    }
    return function;
}

} // namespace

bool GraphicsView::installPenHook()
{
    QWidget* target = viewport() && viewport()->internalWinId() ? viewport() : this;
    const auto window = reinterpret_cast<HWND>(target->winId());
    if (!window)
        return false;
    const auto previous = reinterpret_cast<WNDPROC>(GetWindowLongPtrW(window, GWLP_WNDPROC));
    if (!previous)
        return false;
    m_previousWindowProc = previous;
    SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
    SetWindowLongPtrW(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&penWindowProc));
    return true;
}

LRESULT CALLBACK GraphicsView::penWindowProc(HWND window, UINT message, WPARAM wParam,
                                             LPARAM lParam)
{
    auto* view = reinterpret_cast<GraphicsView*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (!view)
        return DefWindowProcW(window, message, wParam, lParam);
    if (!view->m_previousWindowProc)
        return DefWindowProcW(window, message, wParam, lParam);
    const WNDPROC previous = view->m_previousWindowProc;

    if (message != WM_POINTERUPDATE && message != WM_POINTERDOWN && message != WM_POINTERUP &&
        message != WM_POINTERENTER && message != WM_POINTERLEAVE)
        return CallWindowProcW(previous, window, message, wParam, lParam);

    const GetPointerPenInfoFn getPenInfo = pointerPenInfoFunction();
    if (!getPenInfo)
        return CallWindowProcW(previous, window, message, wParam, lParam);

    const UINT32 pointerId = GET_POINTERID_WPARAM(wParam);
    POINTER_PEN_INFO info;
    std::memset(&info, 0, sizeof(info));
    if (!getPenInfo(pointerId, &info) || info.pointerInfo.pointerType != PT_PEN)
        return CallWindowProcW(previous, window, message, wParam, lParam);

    if (view->m_nativeCursor)
        SetCursor(view->m_nativeCursor);
    view->m_penInRange = true;
    POINT client = info.pointerInfo.ptPixelLocation;
    const POINT screen = client;
    ScreenToClient(window, &client);

    qreal pressure = 0.0;
    if (info.pressure != 0) {
        if (info.penMask & PEN_MASK_PRESSURE)
            pressure = std::min(1.0, info.pressure / 1024.0);
        else
            pressure = 0.5;
    }

    QEvent::Type type;
    Qt::MouseButton button = Qt::NoButton;
    switch (message) {
    case WM_POINTERUPDATE:
        type = QEvent::TabletMove;
        button = view->m_penContact ? Qt::LeftButton : Qt::NoButton;
        break;
    case WM_POINTERDOWN:
        type = QEvent::TabletPress;
        button = Qt::LeftButton;
        view->m_penContact = true;
        view->m_penPointerId = pointerId;
        break;
    case WM_POINTERUP:
        type = QEvent::TabletRelease;
        button = Qt::LeftButton;
        view->m_penContact = false;
        break;
    case WM_POINTERLEAVE:
        view->m_penInRange = false;
        view->m_penContact = false;
        if (view->m_dragMode) {
            // Ends the hover feedback of the handles.
            QMouseEvent away(QEvent::MouseMove, QPointF(-99999, -99999), QPointF(-99999, -99999),
                             Qt::NoButton, Qt::NoButton, Qt::NoModifier);
            view->mouseMoveEvent(&away);
        }
        return CallWindowProcW(previous, window, message, wParam, lParam);
    default:
        return CallWindowProcW(previous, window, message, wParam, lParam);
    }

    QTabletEvent event(type, QPointF(client.x, client.y), QPointF(screen.x, screen.y),
                       QTabletEvent::Stylus, QTabletEvent::Pen, pressure, 0, 0, 0.0, 0.0, 0,
                       Qt::NoModifier, pointerId, button, button);
    view->tabletEvent(&event);
    return 0;
}

void GraphicsView::updateNativeCursor()
{
    if (m_nativeCursor) {
        DestroyCursor(m_nativeCursor);
        m_nativeCursor = nullptr;
    }
    const QPixmap pixmap = cursor().pixmap();
    if (pixmap.isNull())
        return;
    const QImage image = pixmap.toImage().convertToFormat(QImage::Format_ARGB32);
    const int width = image.width();
    const int height = image.height();
    if (width < 1 || height < 1)
        return;

    BITMAPV5HEADER header;
    std::memset(&header, 0, sizeof(header));
    header.bV5Size = sizeof(header);
    header.bV5Width = width;
    header.bV5Height = -height;
    header.bV5Planes = 1;
    header.bV5BitCount = 32;
    header.bV5Compression = BI_BITFIELDS;
    header.bV5RedMask = 0x00FF0000;
    header.bV5GreenMask = 0x0000FF00;
    header.bV5BlueMask = 0x000000FF;
    header.bV5AlphaMask = 0xFF000000;

    void* bits = nullptr;
    HDC screen = GetDC(nullptr);
    HBITMAP color = CreateDIBSection(screen, reinterpret_cast<BITMAPINFO*>(&header), DIB_RGB_COLORS,
                                     &bits, nullptr, 0);
    ReleaseDC(nullptr, screen);
    if (!color || !bits)
        return;
    for (int y = 0; y < height; ++y)
        std::memcpy(static_cast<uchar*>(bits) + y * width * 4, image.constScanLine(y),
                    size_t(width) * 4);
    HBITMAP mask = CreateBitmap(width, height, 1, 1, nullptr);

    ICONINFO icon;
    icon.fIcon = FALSE;
    icon.xHotspot = DWORD(width / 2);
    icon.yHotspot = DWORD(height / 2);
    icon.hbmMask = mask;
    icon.hbmColor = color;
    m_nativeCursor = reinterpret_cast<HCURSOR>(CreateIconIndirect(&icon));
    DeleteObject(color);
    DeleteObject(mask);
}

} // namespace pallo
