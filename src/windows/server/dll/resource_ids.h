// The numbers of resources that code refers to; read by the resource compiler too.
// Numbers of child windows are ui/control_ids.h.
#pragma once

#define PRICEDOWN_TOOLBOX_BITMAP 101
