/*
 * Compiled into vidtv. As it comes, its NIT gives a transport_stream_loop_length that leaves out
 * the descriptors, and no delivery system, so nothing can be found through it. The module
 * parameter complete_nit=1 corrects the length and adds the delivery system of the one stream:
 * 11.36200 GHz horizontal at 19.2 degrees east, DVB-S, QPSK, 27.5000 MS/s, FEC 3/4.
 */
#include <linux/moduleparam.h>

static bool complete_nit;
module_param(complete_nit, bool, 0);
MODULE_PARM_DESC(complete_nit, "Signal a NIT that a scan can go by");

static u16 signalled_length(u16 descriptors)
{
    return complete_nit ? descriptors : 0;
}

static void add_delivery_system(struct vidtv_psi_desc* head)
{
    /* satellite_delivery_system_descriptor, EN 300 468, 6.2.13.2 */
    static const u8 fields[] = {0x01, 0x13, 0x62, 0x00, 0x01, 0x92, 0x81, 0x02, 0x75, 0x00, 0x03};
    struct vidtv_psi_desc* descriptor;

    if (!complete_nit)
        return;
    descriptor = kzalloc(sizeof(*descriptor) + sizeof(fields), GFP_KERNEL);
    if (!descriptor)
        return;
    descriptor->type = 0x43;
    descriptor->length = sizeof(fields);
    memcpy(descriptor->data, fields, sizeof(fields));
    vidtv_psi_desc_chain(head, descriptor);
}
