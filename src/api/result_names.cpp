#include "api/result_names.h"

namespace vzapi {

const std::array<std::u16string_view, 8> kResultNames{
    u"CONVERTER_ERR_SUCCESS",            // VZ_OK
    u"CONVERTER_ERR_INVALID_PARAM",      // VZ_ERR_INVALID_PARAM
    u"CONVERTER_ERR_UNKNOWN_TYPE",       // VZ_ERR_UNKNOWN_TYPE
    u"CONVERTER_ERR_INVALID_VCARD",      //
    u"CONVERTER_ERR_INVALID_VCAL",       //
    u"CONVERTER_ERR_INVALID_VMSG",       //
    u"CONVERTER_ERR_INVALID_VBOOKMARK",  //
    u"CONVERTER_ERR_OUT_OF_MEM",
};

}  // namespace vzapi
