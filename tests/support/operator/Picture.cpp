#include "tests/support/operator/Picture.h"

#include "spooler/Handles.h"
#include "win32/windows/SystemHandles.h"

#include <cstdint>
#include <fstream>
#include <stdexcept>
#include <vector>

namespace editordriver
{
namespace
{
// The context of a whole window, frame included.
class WindowContext
{
public:
    explicit WindowContext(HWND window) : m_window(window), m_context(::GetWindowDC(window)) {}
    ~WindowContext() { ::ReleaseDC(m_window, m_context); }
    WindowContext(const WindowContext&) = delete;
    WindowContext& operator=(const WindowContext&) = delete;
    operator HDC() const noexcept { return m_context; }

private:
    HWND m_window;
    HDC m_context;
};

BITMAPINFO infoOf(int width, int height)
{
    BITMAPINFO info = {};
    info.bmiHeader.biSize = sizeof info.bmiHeader;
    info.bmiHeader.biWidth = width;
    info.bmiHeader.biHeight = height;
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 24;
    info.bmiHeader.biCompression = BI_RGB;
    return info;
}

void write(const OdString& file, const BITMAPINFO& info, const std::vector<std::uint8_t>& pixels)
{
    BITMAPFILEHEADER header = {};
    header.bfType = 0x4D42; // "BM"
    header.bfOffBits = sizeof header + sizeof info.bmiHeader;
    header.bfSize = header.bfOffBits + static_cast<DWORD>(pixels.size());
    std::ofstream out(file.c_str(), std::ios::binary);
    out.write(reinterpret_cast<const char*>(&header), sizeof header);
    out.write(reinterpret_cast<const char*>(&info.bmiHeader), sizeof info.bmiHeader);
    out.write(reinterpret_cast<const char*>(pixels.data()), static_cast<std::streamsize>(pixels.size()));
    out.close();
    if (!out)
        throw std::runtime_error("the picture cannot be written");
}
} // namespace

void savePicture(HWND window, const OdString& file)
{
    RECT area = {};
    if (!::GetWindowRect(window, &area))
        throw std::runtime_error("there is no window to take a picture of");
    const int width = area.right - area.left;
    const int height = area.bottom - area.top;
    ::RedrawWindow(window, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_FRAME | RDW_ALLCHILDREN | RDW_UPDATENOW);
    ::GdiFlush();

    const WindowContext source(window);
    const DeviceContext target(::CreateCompatibleDC(source));
    const BitmapHandle bitmap(::CreateCompatibleBitmap(source, width, height));
    const HGDIOBJ before = ::SelectObject(target.get(), bitmap.get());
    const BOOL copied = ::BitBlt(target.get(), 0, 0, width, height, source, 0, 0, SRCCOPY);
    ::SelectObject(target.get(), before);

    BITMAPINFO info = infoOf(width, height);
    const auto stride = (static_cast<std::size_t>(width) * 3 + 3) / 4 * 4;
    std::vector<std::uint8_t> pixels(stride * static_cast<std::size_t>(height));
    if (!copied || ::GetDIBits(target.get(), bitmap.get(), 0, static_cast<UINT>(height), pixels.data(), &info,
                               DIB_RGB_COLORS) != height)
        throw std::runtime_error("the window cannot be copied");
    write(file, info, pixels);
}
} // namespace editordriver
