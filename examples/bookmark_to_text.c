/* Reads a bookmark, prints what it holds, and writes it again. */
#include <stdio.h>
#include <string.h>
#include <vzapi/vzapi.h>

static char bookmark[] =
    "BEGIN:VBKM\r\n"
    "VERSION:1.0\r\n"
    "TITLE:Tide tables\r\n"
    "URL:http://tides.example/north-pier\r\n"
    "END:VBKM\r\n";

/* Prints UTF-16 text; units outside ASCII as numbers. */
static void print(const char* label, const char16_t* text) {
    printf("%s: ", label);
    for (; text != NULL && *text != 0; ++text) printf(*text < 128 ? "%c" : "<%04X>", *text);
    printf("\n");
}

int main(void) {
    VZAPI_Initialize(VZ_INTERFACE_VERSION);

    VersitData in = {.size = sizeof in, .length = (uint32_t)strlen(bookmark), .text = bookmark};
    VersitData out = {.size = sizeof out};
    BookmarkItem item = {.size = sizeof item};
    ResultCode result = ConvertFromVersit(VZ_TYPE_BOOKMARK, &in, &item);
    if (result == VZ_OK) {
        print("title", item.title);
        print("url", item.url);
        result = ConvertToVersit(VZ_TYPE_BOOKMARK, &item, &out);
    }
    if (result == VZ_OK) fwrite(out.text, 1, out.length, stdout);

    FreeVersitData(&out);
    FreeConverterData(VZ_TYPE_BOOKMARK, &item);
    VZAPI_Terminate();
    return result == VZ_OK ? 0 : 1;
}
