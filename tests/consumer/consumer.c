/* A host program built against the installed package: reads a bookmark, prints its title and url, writes it
 * back. */
#include <stdio.h>
#include <string.h>
#include <vzapi/odcapi.h>
#include <vzapi/vzapi.h>

static char bookmark[] =
    "BEGIN:VBKM\r\n"
    "VERSION:1.0\r\n"
    "TITLE:Harbour lights\r\n"
    "URL:http://lights.example/\r\n"
    "END:VBKM\r\n";

static void print(const char16_t* text) {
    for (; text != NULL && *text != 0; ++text) putchar((char)*text);
    putchar('\n');
}

static int convert(BookmarkItem* item, VersitData* out) {
    VersitData in = {.size = sizeof in, .length = (uint32_t)strlen(bookmark), .text = bookmark};
    if (ValidateVersitData(VZ_TYPE_BOOKMARK, &in) != VZ_OK) return 2;
    if (ConvertFromVersit(VZ_TYPE_BOOKMARK, &in, item) != VZ_OK) return 3;
    print(item->title);
    print(item->url);
    if (ConvertToVersit(VZ_TYPE_BOOKMARK, item, out) != VZ_OK) return 4;
    const int same = out->length == in.length && memcmp(out->text, bookmark, in.length) == 0;
    puts(same ? "written back unchanged" : "written back changed");
    return same ? 0 : 5;
}

int main(void) {
    if (VZAPI_GetAPIVersion() != VZ_INTERFACE_VERSION) return 1;
    VZAPI_Initialize(VZ_INTERFACE_VERSION);
    BookmarkItem item = {.size = sizeof item};
    VersitData out = {.size = sizeof out};
    const int status = convert(&item, &out);
    if (FreeVersitData(&out) != VZ_OK || FreeConverterData(VZ_TYPE_BOOKMARK, &item) != VZ_OK) return 6;
    VZAPI_Terminate();
    return status;
}
