// The numbers of resources that code refers to; read by the resource compiler too.
// Ids of child windows are in windows/base/control_ids.h.
#pragma once

#define PRICEDOWN_TOOLBOX_BITMAP 101
