// SPDX-License-Identifier: MIT
#include "platform/linux/places/WaterOutlines.h"

namespace zeph {

namespace {

// The oceans part where their published limits do: at 60 degrees south, at the meridians of Cape
// Horn, Cape Agulhas and the south-east cape of Tasmania, and along Central America and the Sunda
// islands. What is in none of them is the Pacific.

constexpr Coordinate southernOcean[] = {{-60, -180}, {-90, -180}, {-90, 180}, {-60, 180}};

constexpr Coordinate arcticOcean[] = {{66, -180}, {90, -180}, {90, 180}, {66, 180}};

constexpr Coordinate atlanticOcean[] = {
    {66, -100},     {66, 40},      {30, 40},    {30, 20},     {-60, 20},    {-60, -67.3},
    {-55.5, -67.3}, {-20, -67},    {0, -75},    {7.5, -77.5}, {9.1, -79.5}, {8.5, -81.5},
    {9.5, -83.5},   {12.2, -85.5}, {14.8, -88}, {15.5, -92},  {17, -95},    {20, -100}};

constexpr Coordinate indianOcean[] = {
    {-60, 20},     {30, 20},     {30, 95},       {16.5, 98},  {8, 98.5},   {5.5, 95.5},
    {0, 100},      {-6, 105.5},  {-7.5, 110},    {-8.5, 115}, {-8.7, 120}, {-9.5, 124},
    {-8.5, 127.5}, {-9, 131},    {-15, 131},     {-25, 135},  {-31, 131},  {-35, 139},
    {-38, 145},    {-41, 146.5}, {-43.6, 146.8}, {-60, 146.8}};

// Lakes wide enough to lie far from every town.

constexpr Coordinate caspianSea[] = {{47, 51},     {45.5, 53.2}, {44.5, 50.4}, {42.5, 52.6},
                                     {40, 53.2},   {37, 54},     {36.7, 50},   {38.5, 48.9},
                                     {40.4, 49.9}, {42, 48.2},   {45, 47}};

constexpr Coordinate lakeSuperior[] = {
    {46.5, -84.8}, {46.6, -87.5}, {46.8, -91.9}, {48.8, -88.5}, {47.9, -85}};

constexpr Coordinate lakeMichigan[] = {
    {45.9, -85}, {43.5, -86.4}, {41.7, -87.2}, {43, -87.9}, {45.8, -87}};

constexpr Coordinate lakeHuron[] = {
    {45.9, -84.5}, {46, -81.5}, {44.7, -80.2}, {43.1, -82.4}, {44.5, -83.3}};

constexpr Coordinate lakeVictoria[] = {
    {0.3, 32.3}, {0.1, 34.2}, {-2, 33.6}, {-2.6, 32.2}, {-1.5, 31.7}};

constexpr Coordinate lakeTanganyika[] = {
    {-3.4, 29.3}, {-6, 29.7}, {-8.7, 31}, {-8.5, 30.5}, {-5, 29.1}};

constexpr Coordinate lakeMalawi[] = {{-9.6, 34},  {-12, 34.8}, {-14.3, 35.2},
                                     {-14, 34.5}, {-12, 34.1}, {-10.5, 34.1}};

constexpr Coordinate lakeBaikal[] = {
    {51.5, 103.8}, {53, 108.6}, {55.7, 109.8}, {53.5, 107.5}, {52, 104.9}};

} // namespace

std::span<const GlobeOutline> oceanOutlines() {
    static constexpr GlobeOutline outlines[] = {
        {"Southern Ocean", southernOcean},
        {"Arctic Ocean", arcticOcean},
        {"Atlantic Ocean", atlanticOcean},
        {"Indian Ocean", indianOcean},
    };
    return outlines;
}

std::span<const GlobeOutline> lakeOutlines() {
    static constexpr GlobeOutline outlines[] = {
        {"Caspian Sea", caspianSea},     {"Lake Superior", lakeSuperior},
        {"Lake Michigan", lakeMichigan}, {"Lake Huron", lakeHuron},
        {"Lake Victoria", lakeVictoria}, {"Lake Tanganyika", lakeTanganyika},
        {"Lake Malawi", lakeMalawi},     {"Lake Baikal", lakeBaikal},
    };
    return outlines;
}

} // namespace zeph
