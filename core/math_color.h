/// A colour of floating-point components, 0 to 1 in ordinary light.
#pragma once

struct CMath_Color
{
    float r = 0.0F;
    float g = 0.0F;
    float b = 0.0F;
    float a = 1.0F;
};
