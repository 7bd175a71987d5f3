#include "drawing.h"

void PaintWindow(HWND window, const std::function<void(HDC context, const RECT& client)>& draw) {
    PAINTSTRUCT paint;
    const HDC screen = BeginPaint(window, &paint);
    RECT client;
    GetClientRect(window, &client);
    const HDC memory = CreateCompatibleDC(screen);
    const HBITMAP bitmap = CreateCompatibleBitmap(screen, client.right, client.bottom);
    const HGDIOBJ former = SelectObject(memory, bitmap);
    draw(memory, client);
    BitBlt(screen, 0, 0, client.right, client.bottom, memory, 0, 0, SRCCOPY);
    SelectObject(memory, former);
    DeleteObject(bitmap);
    DeleteDC(memory);
    EndPaint(window, &paint);
}

void Fill(HDC context, const RECT& area, COLORREF color) {
    SetDCBrushColor(context, color);
    FillRect(context, &area, static_cast<HBRUSH>(GetStockObject(DC_BRUSH)));
}

void Show(HDC context, const Painting& painting, int left, int top) {
    const BITMAPINFO format{
        {sizeof(BITMAPINFOHEADER), painting.width(), -painting.height(), 1, 32, BI_RGB, 0, 0, 0, 0, 0}, {}};
    SetDIBitsToDevice(context, left, top, static_cast<DWORD>(painting.width()),
                      static_cast<DWORD>(painting.height()), 0, 0, 0, static_cast<UINT>(painting.height()),
                      painting.pixels(), &format, DIB_RGB_COLORS);
}

void ShowDot(HDC context, Brush brush, int side, int left, int top) {
    Painting dot(side, side, 0xFFFFFF);
    brush.petals = 1;
    dot.Begin(brush, {side / 2.0, side / 2.0});
    Show(context, dot, left, top);
}

HFONT MakeFont(int height, int weight) {
    return CreateFontW(-height, 0, 0, 0, weight, FALSE, FALSE, FALSE, DEFAULT_CHARSET, OUT_DEFAULT_PRECIS,
                       CLIP_DEFAULT_PRECIS, CLEARTYPE_QUALITY, DEFAULT_PITCH | FF_SWISS, L"Segoe UI");
}

void Write(HDC context, const std::wstring& text, HFONT font, COLORREF color, RECT area, UINT side) {
    SelectObject(context, font);
    SetTextColor(context, color);
    SetBkMode(context, TRANSPARENT);
    DrawTextW(context, text.c_str(), -1, &area, DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX | side);
}
