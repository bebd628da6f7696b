#pragma once

#include <windows.h>

#include <string>

std::wstring TextOf(HWND window);
std::wstring ClassOf(HWND window);
// In one line: tabs and line ends are bars.
std::string Utf8(const std::wstring& wide);

// Prints what a window shows, a line each, fields apart by tabs, texts in UTF-8:
//   window   caption left top width height | owned by the host? | width that the caption needs
//   client   width height
//   control  number class left top width height | width and height that the text needs | colour |
//            mean colour of the picture | hint | text
void DescribeWindow(HWND window);
