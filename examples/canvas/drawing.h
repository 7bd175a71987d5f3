// Drawing into a window with GDI: areas, text, paintings.
#pragma once

#include <windows.h>

#include <functional>
#include <string>

#include "painting.h"

// For WM_PAINT: draws the client area into memory first to avoid flicker.
void PaintWindow(HWND window, const std::function<void(HDC context, const RECT& client)>& draw);

void Fill(HDC context, const RECT& area, COLORREF color);

void Show(HDC context, const Painting& painting, int left, int top);

// One dot of the brush in the middle of a white square.
void ShowDot(HDC context, Brush brush, int side, int left, int top);

// The height in pixels; the font is the caller's to delete.
HFONT MakeFont(int height, int weight);

// One line of text, at the left or right side (DT_LEFT, DT_RIGHT) of the area.
void Write(HDC context, const std::wstring& text, HFONT font, COLORREF color, RECT area, UINT side);
