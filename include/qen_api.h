// What the module exports: marked here, everything else of the module stays hidden.
#pragma once

#define QEN_API __attribute__((visibility("default")))
