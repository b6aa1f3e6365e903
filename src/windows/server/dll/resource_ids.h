// The numbers of resources that code refers to; read by the resource compiler too.
#pragma once

#define PRICEDOWN_TOOLBOX_BITMAP 101
