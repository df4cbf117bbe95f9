/* Reads a bookmark, prints its title, and writes it again. */
#include <stdio.h>
#include <vzapi/vzapi.h>

static char text[] =
    "BEGIN:VBKM\r\nVERSION:1.0\r\nTITLE:Tide tables\r\nURL:http://tides.example/\r\nEND:VBKM\r\n";

int main(void) {
    VersitData in = {.size = sizeof in, .length = sizeof text - 1, .text = text};
    VersitData out = {.size = sizeof out};
    BookmarkItem item = {.size = sizeof item};

    VZAPI_Initialize(VZ_INTERFACE_VERSION);
    ResultCode result = ConvertFromVersit(VZ_TYPE_BOOKMARK, &in, &item);
    if (result == VZ_OK) {
        for (const char16_t* unit = item.title; unit && *unit; ++unit) putchar(*unit < 128 ? *unit : '?');
        putchar('\n');
        result = ConvertToVersit(VZ_TYPE_BOOKMARK, &item, &out);
    }
    if (result == VZ_OK) fwrite(out.text, 1, out.length, stdout);
    FreeVersitData(&out);
    FreeConverterData(VZ_TYPE_BOOKMARK, &item);
    VZAPI_Terminate();
    return result == VZ_OK ? 0 : 1;
}
