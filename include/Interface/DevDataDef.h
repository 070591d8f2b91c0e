// Kinds of attached device as the device service reports them.
#ifndef INTERFACE_DEVDATADEF_H
#define INTERFACE_DEVDATADEF_H

namespace DevDataDef {
enum PRODUCT_TYPE {
    PRODUCT_TYPE_WCDMA = 0,
    PRODUCT_TYPE_CDMA = 1,
    PRODUCT_TYPE_TD_SCDMA = 2,
    PRODUCT_TYPE_WIMAX = 3,
    PRODUCT_TYPE_WIFI = 4,
    PRODUCT_TYPE_UNKNOW = 5
};
}

#endif
