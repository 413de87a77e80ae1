// SPDX-License-Identifier: MIT
#include "platform/linux/places/SeaOutlines.h"

namespace zeph {

namespace {

// After the limits of oceans and seas as the International Hydrographic Organization published
// them (S-23, third edition of 1953; the Southern Ocean as in the draft of 2002): where those run
// over open water, the corners are their capes and islands, rounded to a tenth of a degree or more
// coarsely. A few seas that they leave out are drawn in the same way. Along the coasts the outlines
// run over land, which is looked up before them.

constexpr Coordinate seaOfMarmara[] = {{40.3, 27}, {40.3, 29}, {41, 29.2}, {41.1, 27.5}};

constexpr Coordinate seaOfAzov[] = {
    {45.2, 36.6}, {45.4, 34.9}, {46.4, 34.8}, {47.4, 38.5}, {46, 38.3}};

constexpr Coordinate blackSea[] = {{41, 28.5},   {43, 27.5}, {46.8, 30.5}, {46, 33.8}, {45.2, 36.6},
                                   {45.2, 37.2}, {43, 41},   {41.3, 42},   {40.7, 38}};

constexpr Coordinate aegeanSea[] = {{41, 22.8},   {41.1, 26.8}, {39.5, 27},   {37, 28.3}, {36, 28},
                                    {35.3, 26.3}, {35.4, 23.6}, {36.4, 22.9}, {38, 23}};

constexpr Coordinate adriaticSea[] = {{40, 18.4}, {40.2, 19.8}, {42, 19.8}, {45.9, 14.3},
                                      {45.9, 12}, {43.5, 12.8}, {41.5, 15}};

constexpr Coordinate ionianSea[] = {{40.6, 16.8}, {40, 18.4},   {40.2, 19.8}, {38.3, 22.8},
                                    {36.4, 22.9}, {36.7, 15.1}, {38, 15.6}};

constexpr Coordinate tyrrhenianSea[] = {{38, 12.5}, {38.1, 15.7}, {40.4, 16}, {42.7, 11.3},
                                        {42.9, 10}, {41.3, 9.3},  {39.1, 9.4}};

constexpr Coordinate alboranSea[] = {{35.9, -5.6}, {35, -5}, {35, -2}, {36.8, -2}, {36.9, -4.5}};

constexpr Coordinate mediterraneanSea[] = {
    {35.8, -5.6}, {36.2, -5.6}, {38, -1}, {44.7, 4}, {44.7, 12}, {46, 12},  {46, 16}, {41.3, 20},
    {41.3, 27},   {37, 37},     {31, 35}, {30, 20},  {33, 10},   {37.3, 9}, {35, -2}};

constexpr Coordinate redSea[] = {{12.6, 43.2}, {15, 39}, {18, 37}, {22, 36},   {30, 32},
                                 {29.9, 35.3}, {28, 36}, {21, 40}, {16, 43.2}, {12.8, 43.6}};

constexpr Coordinate gulfOfAden[] = {{12.7, 43.2}, {12.8, 45}, {15.6, 51},  {15.7, 52.2},
                                     {11.8, 51.3}, {10.2, 45}, {11.3, 42.9}};

constexpr Coordinate persianGulf[] = {{30.7, 48},   {30, 51},     {27.5, 53},
                                      {27.2, 56.4}, {26.3, 56.4}, {24, 54},
                                      {24, 51.5},   {25, 49.8},   {29.5, 47.6}};

constexpr Coordinate gulfOfOman[] = {{26.3, 56.4}, {27.2, 56.4}, {25.6, 58},  {25.3, 61.7},
                                     {22.5, 59.8}, {23.5, 57.5}, {24.5, 56.2}};

constexpr Coordinate arabianSea[] = {{11.8, 51.3}, {15.7, 52.2}, {18, 56},     {22.5, 59.8},
                                     {25.3, 61.7}, {25.7, 66.5}, {24, 69},     {20, 73},
                                     {14.8, 74.3}, {10, 72.5},   {-0.7, 73.1}, {10.4, 51.3}};

constexpr Coordinate laccadiveSea[] = {{14.8, 74.3}, {10, 72.5}, {-0.7, 73.1}, {5.9, 80.6},
                                       {7, 80},      {9, 79.3},  {8.1, 77.6},  {11, 76}};

constexpr Coordinate bayOfBengal[] = {{5.9, 80.6},  {7.5, 81.5}, {9.5, 80},  {9, 79},
                                      {16, 80},     {22.8, 87},  {22.8, 92}, {16, 94.3},
                                      {10.5, 92.7}, {6.8, 93.8}, {5.7, 95.2}};

constexpr Coordinate andamanSea[] = {{16, 94.3},  {17.5, 96.5}, {16, 98},    {8, 98.8},
                                     {5.7, 95.3}, {6.8, 93.8},  {10.5, 92.7}};

constexpr Coordinate straitOfMalacca[] = {{5.7, 95.3},  {8, 98.4},  {6.5, 100.5},
                                          {1.2, 103.7}, {0.9, 103}, {3, 99}};

constexpr Coordinate gulfOfThailand[] = {{8.6, 104.9}, {10.6, 104.7}, {13.8, 101},
                                         {13.3, 99.8}, {9, 99},       {6.2, 102.2}};

constexpr Coordinate gulfOfTonkin[] = {{21.8, 108.6}, {20.2, 110.1}, {18.5, 108.7},
                                       {17, 107},     {18.5, 105.5}, {20.8, 106.2}};

constexpr Coordinate southChinaSea[] = {{1.2, 104},    {-3, 106},     {-3.1, 110.3}, {2, 109.5},
                                        {3, 113},      {6.9, 116.7},  {8.4, 117.1},  {11.3, 119.3},
                                        {13.6, 120.3}, {18.6, 120.8}, {22, 120.8},   {25.2, 121.5},
                                        {25.6, 119.7}, {22.6, 114.5}, {21.5, 109},   {18.5, 105.7},
                                        {11, 108.5},   {8.6, 104.9},  {6.2, 102.2}};

constexpr Coordinate javaSea[] = {{-3, 106},   {-3.1, 110.3}, {-3.5, 112},
                                  {-4, 116.1}, {-5.5, 119.4}, {-7, 117.5},
                                  {-7, 112.6}, {-6.3, 107},   {-5.8, 105.7}};

constexpr Coordinate makassarStrait[] = {
    {-4, 116.1}, {1.2, 118}, {1, 120.9}, {-3.5, 119.5}, {-5.5, 119.5}};

constexpr Coordinate celebesSea[] = {{1, 118},     {4.2, 117.8}, {5.2, 119.3},
                                     {7, 122},     {7.6, 124},   {5.6, 125.5},
                                     {3.5, 125.6}, {1.6, 125.1}, {0.5, 121}};

constexpr Coordinate suluSea[] = {{6.9, 116.8}, {8.4, 117.2}, {11.3, 119.4}, {11.9, 122},
                                  {9.2, 123.2}, {6.9, 122},   {5.2, 119.3},  {5.3, 118.4}};

constexpr Coordinate floresSea[] = {
    {-5.6, 119.5}, {-5.5, 122.6}, {-8.3, 123}, {-8.4, 117.5}, {-7, 117.5}};

constexpr Coordinate baliSea[] = {
    {-7, 112.6}, {-7, 117.5}, {-8.4, 117.5}, {-8.8, 115.2}, {-7.7, 114.3}};

constexpr Coordinate savuSea[] = {{-8.4, 118.9},  {-8.3, 123}, {-8.3, 125},
                                  {-10.3, 123.5}, {-11, 122},  {-10, 119}};

constexpr Coordinate bandaSea[] = {{-3.2, 122.2}, {-3.3, 126},   {-3, 128},
                                   {-3.4, 130.8}, {-5.5, 132.5}, {-8.2, 131.2},
                                   {-8.3, 127.3}, {-8.3, 123},   {-5.5, 122.6}};

constexpr Coordinate moluccaSea[] = {{1.6, 125.1},  {2.5, 127.8},  {0.5, 127.6},
                                     {-1.8, 127.4}, {-1.8, 123.6}, {0.3, 123.8}};

constexpr Coordinate seramSea[] = {{-0.9, 127.6}, {-0.8, 131}, {-3, 133.3}, {-4.2, 133},
                                   {-3.4, 130.8}, {-3, 128},   {-3.3, 126}, {-1.8, 126}};

constexpr Coordinate timorSea[] = {{-8.3, 127.3}, {-10.3, 123.5}, {-11, 122.5}, {-13.9, 126.8},
                                   {-15, 129},    {-12.5, 130.7}, {-11.2, 132}, {-8.2, 131.2}};

constexpr Coordinate arafuraSea[] = {{-8.2, 131.2},  {-5.5, 132.5}, {-4, 133},
                                     {-5, 138.2},    {-8.3, 138.6}, {-9.2, 142.5},
                                     {-10.8, 142.4}, {-12, 136.8},  {-11.2, 132}};

constexpr Coordinate gulfOfCarpentaria[] = {
    {-10.8, 142.4}, {-12, 136.7}, {-15, 135}, {-18, 138}, {-18, 141.5}};

constexpr Coordinate bismarckSea[] = {{-2.7, 141},   {-5.6, 146}, {-5.6, 150}, {-4.2, 152.2},
                                      {-2.6, 150.8}, {-2, 147},   {-1.5, 143}};

constexpr Coordinate solomonSea[] = {{-10.6, 150.7}, {-6.7, 147.5}, {-5.6, 150},   {-4.2, 152.4},
                                     {-7, 156.5},    {-9.8, 160.4}, {-10.8, 162.3}};

constexpr Coordinate coralSea[] = {{-9.3, 142.6}, {-7.6, 144.5},  {-10.6, 150.7}, {-10.8, 162.3},
                                   {-13, 166.7},  {-20.2, 169.8}, {-22.3, 167},   {-30, 159},
                                   {-30, 153.2},  {-25, 152.8},   {-19, 146.8},   {-10.8, 142.4}};

constexpr Coordinate bassStrait[] = {
    {-38.8, 143.5}, {-40.7, 144.7}, {-40.8, 148.3}, {-37.6, 149.9}, {-37.8, 145}};

constexpr Coordinate tasmanSea[] = {{-30, 153.2},   {-30, 168},     {-34.5, 172.7},
                                    {-41, 174.4},   {-46.7, 168.2}, {-50.7, 166},
                                    {-43.7, 146.9}, {-40.8, 148.3}, {-37.6, 149.9}};

constexpr Coordinate greatAustralianBight[] = {{-35.1, 117.6}, {-43.6, 146}, {-40.7, 144.7},
                                               {-38.8, 143.5}, {-36, 139},   {-32, 138},
                                               {-31, 130},     {-33.5, 122}};

constexpr Coordinate bohaiSea[] = {
    {39, 121.2}, {41.2, 121.6}, {40, 117.3}, {37, 118.6}, {37.8, 120.9}};

constexpr Coordinate yellowSea[] = {{34.3, 126.3}, {38, 126.5}, {40.2, 124.6}, {39, 121.2},
                                    {37.8, 120.9}, {36, 119},   {31.8, 121.8}, {33.2, 126.4}};

constexpr Coordinate eastChinaSea[] = {{33.2, 126.4}, {31.8, 121.8}, {28, 120},     {25.6, 119.6},
                                       {25.2, 121.6}, {24.4, 123.8}, {28.3, 129.6}, {31, 130.6},
                                       {33.3, 129.6}, {34.6, 129}};

constexpr Coordinate seaOfJapan[] = {{35.2, 129.2}, {34.6, 129},   {34, 130.9}, {36, 137},
                                     {41.3, 140.4}, {43.3, 140.8}, {45.5, 142}, {52, 142},
                                     {52, 141},     {43, 131.8},   {39, 127.2}};

constexpr Coordinate seaOfOkhotsk[] = {{45.5, 142},   {52, 142},  {54.3, 136.8}, {59.5, 140},
                                       {62.6, 163.5}, {57, 157},  {51, 156.7},   {46, 150.5},
                                       {44, 145.4},   {44, 143.5}};

constexpr Coordinate beringSea[] = {
    {56, 162.8}, {54.8, 168}, {52.7, 173.5}, {51.4, 180}, {52.3, 188}, {54.2, 194.5}, {55.5, 199},
    {58.8, 203}, {62, 196},   {66, 193},     {66.1, 190}, {65, 178},   {62, 176},     {60, 163.5}};

constexpr Coordinate gulfOfAlaska[] = {{54.7, 196.6}, {57.5, 202}, {60.5, 207},
                                       {61.5, 213},   {60.2, 220}, {58.2, 223.4}};

constexpr Coordinate philippineSea[] = {{22, 121},     {24.4, 123.8}, {28.3, 129.6}, {31, 131},
                                        {33.5, 135.8}, {34.6, 138.9}, {24, 141.5},   {13.4, 144.7},
                                        {9.5, 138},    {7.3, 134.5},  {2.5, 128.6},  {5.6, 125.5},
                                        {9.5, 126},    {12.5, 124.8}, {18.4, 122.2}};

constexpr Coordinate gulfOfCalifornia[] = {
    {23, -109.6}, {23.2, -106.4}, {31.5, -113}, {31.9, -115}, {24.5, -110.7}};

constexpr Coordinate gulfOfMexico[] = {{25.2, -80.9}, {23, -81},   {22, -84.9}, {21.5, -87},
                                       {18, -91},     {18, -95},   {22, -98.3}, {28, -98},
                                       {30.8, -94},   {30.8, -84}, {27, -82}};

constexpr Coordinate caribbeanSea[] = {
    {21.5, -87}, {22, -84.9},   {20, -77}, {19.9, -73.5}, {18.5, -68.3}, {18.3, -65}, {17, -61.5},
    {13, -59.4}, {10.8, -60.9}, {10, -64}, {8.5, -77},    {9, -82},      {15, -84},   {16, -89}};

constexpr Coordinate gulfOfSaintLawrence[] = {
    {47.7, -59.3}, {51.5, -56.8}, {50.4, -66.5}, {48, -65}, {45.7, -62}};

constexpr Coordinate hudsonBay[] = {{62.6, -78},   {63.9, -80.5}, {64.2, -88.5},
                                    {62.5, -93.5}, {58.5, -95.5}, {54.5, -83},
                                    {51, -80.5},   {51, -78.5},   {58.5, -77.5}};

constexpr Coordinate hudsonStrait[] = {{60.4, -64.8}, {62.4, -66}, {64.5, -78}, {62.6, -78}};

constexpr Coordinate foxeBasin[] = {{64.5, -78}, {63.9, -80.5}, {65.8, -84},
                                    {69.8, -82}, {69.8, -77},   {67, -73}};

constexpr Coordinate baffinBay[] = {{70, -69}, {70, -54},   {76, -59.5},
                                    {78, -72}, {75.5, -81}, {72, -78}};

constexpr Coordinate davisStrait[] = {{60, -64.6}, {60, -44}, {64, -51},
                                      {70, -54},   {70, -69}, {66, -62}};

constexpr Coordinate labradorSea[] = {{60, -64.6}, {60, -44}, {47.6, -53}, {52, -56}};

constexpr Coordinate gulfOfGuinea[] = {{4.4, -7.6}, {5.5, -4}, {6.7, 2}, {4, 10}, {-0.6, 9}};

constexpr Coordinate bayOfBiscay[] = {{43.8, -7.8}, {48.1, -4.9}, {47.5, -2}, {43.2, -1.4}};

constexpr Coordinate celticSea[] = {{48.1, -4.9}, {50.1, -5.6}, {51.8, -5.2},
                                    {52.2, -6.4}, {51.5, -9.6}, {49, -9}};

constexpr Coordinate englishChannel[] = {{48.1, -4.9}, {50.1, -5.6}, {51, 1.2},
                                         {51, 1.8},    {49, 0},      {48.4, -2}};

constexpr Coordinate irishSea[] = {{52.2, -6.4}, {51.8, -5.2}, {53.2, -3},
                                   {54.8, -3},   {55.4, -5.5}, {54, -6.4}};

constexpr Coordinate kattegat[] = {{57.7, 10.6}, {57.7, 12}, {56, 12.8}, {55.8, 9.9}};

constexpr Coordinate skagerrak[] = {{57.1, 8.6},  {58, 7},    {59.5, 10.5},
                                    {58.8, 11.4}, {57.7, 12}, {57.7, 10.6}};

constexpr Coordinate northSea[] = {{51, 1.5},  {53, 9},  {57.1, 8.6}, {58, 7},  {61, 5},
                                   {61, -0.9}, {59, -3}, {57.5, -3},  {54, -1}, {51.5, 0}};

constexpr Coordinate gulfOfFinland[] = {{59, 23}, {60, 23}, {60.9, 28.5}, {60, 30.3}, {59.2, 28}};

constexpr Coordinate gulfOfBothnia[] = {{60, 18.5}, {62, 17}, {66, 21.5}, {66, 26}, {60.3, 22.3}};

constexpr Coordinate balticSea[] = {{53.8, 9.8}, {55.8, 9.9},  {56, 12.8}, {59, 16},
                                    {60, 18.5},  {60.3, 22.3}, {60, 23},   {59, 23},
                                    {59, 24.5},  {57, 24.5},   {54, 21},   {53.6, 14}};

constexpr Coordinate norwegianSea[] = {{61, -0.9}, {61, 5},      {64, 10.5},
                                       {70.5, 22}, {71.2, 25.8}, {74.5, 19},
                                       {71, -8.5}, {65, -13.6},  {62, -7}};

constexpr Coordinate greenlandSea[] = {{66.2, -17}, {66.5, -23}, {68.2, -29.5}, {70.5, -24},
                                       {77, -20},   {83.3, -27}, {80, 10.5},    {76.6, 16.5},
                                       {74.5, 19},  {71, -8.5},  {65, -13.6}};

constexpr Coordinate whiteSea[] = {{68.7, 41.3}, {68, 44},   {66, 45},
                                   {63.7, 38},   {66.8, 32}, {66.4, 40.5}};

constexpr Coordinate barentsSea[] = {
    {71.2, 25.8}, {74.5, 19},   {76.6, 16.5}, {80, 27}, {80.8, 47},   {81, 60},  {76.9, 68},
    {73, 56},     {70.5, 57.8}, {68.5, 54},   {68, 44}, {68.7, 41.3}, {69.3, 33}};

constexpr Coordinate karaSea[] = {{70.5, 57.8}, {73, 56},      {76.9, 68}, {81, 60}, {81.2, 95},
                                  {79, 100},    {77.7, 104.2}, {75.5, 87}, {72, 75}, {68.5, 66}};

constexpr Coordinate laptevSea[] = {{77.7, 104.2}, {79, 100}, {81.2, 95},  {79, 139},
                                    {76, 139},     {73, 141}, {70.7, 132}, {73, 112}};

constexpr Coordinate eastSiberianSea[] = {{72.7, 141},   {76, 139},   {79, 139}, {76, 180},
                                          {70.8, 178.6}, {68.8, 170}, {69, 160}, {71, 150}};

constexpr Coordinate chukchiSea[] = {{70.8, 178.6}, {76, 180},   {72.5, 203.6}, {71.3, 203.4},
                                     {68.3, 194},   {66, 192.5}, {66.1, 190},   {67.2, 185}};

constexpr Coordinate beaufortSea[] = {{71.3, 203.4}, {72.5, 203.6}, {76, 236},   {74.4, 236},
                                      {71.5, 234},   {69, 226},     {69.5, 219}, {70, 212}};

constexpr Coordinate mozambiqueChannel[] = {{-10.8, 40.4}, {-12, 49.2}, {-16, 44.4}, {-25.6, 45},
                                            {-26.9, 32.9}, {-20, 34.7}, {-15, 40.6}};

constexpr Coordinate scotiaSea[] = {{-55, -66},   {-54, -36},   {-57, -26.5},
                                    {-60.7, -45}, {-61.2, -54}, {-56, -67}};

constexpr Coordinate weddellSea[] = {{-63.3, -57}, {-61, -45}, {-71, -12}, {-73, -18},
                                     {-78, -35},   {-78, -62}, {-68, -64}};

constexpr Coordinate rossSea[] = {
    {-71.3, 170.2}, {-77.8, 165.5}, {-78.5, 180}, {-78.5, 202}, {-77, 202}};

constexpr Coordinate bellingshausenSea[] = {{-66, -66}, {-68, -100}, {-73, -102}, {-74, -75}};

constexpr Coordinate amundsenSea[] = {
    {-68, -100}, {-73, -102}, {-75.5, -114}, {-73.3, -126}, {-70, -126}};

constexpr GlobeOutline seas[] = {
    {"Sea of Marmara", seaOfMarmara},
    {"Sea of Azov", seaOfAzov},
    {"Black Sea", blackSea},
    {"Aegean Sea", aegeanSea},
    {"Adriatic Sea", adriaticSea},
    {"Ionian Sea", ionianSea},
    {"Tyrrhenian Sea", tyrrhenianSea},
    {"Alboran Sea", alboranSea},
    {"Mediterranean Sea", mediterraneanSea},
    {"Red Sea", redSea},
    {"Gulf of Aden", gulfOfAden},
    {"Persian Gulf", persianGulf},
    {"Gulf of Oman", gulfOfOman},
    {"Arabian Sea", arabianSea},
    {"Laccadive Sea", laccadiveSea},
    {"Bay of Bengal", bayOfBengal},
    {"Andaman Sea", andamanSea},
    {"Strait of Malacca", straitOfMalacca},
    {"Gulf of Thailand", gulfOfThailand},
    {"Gulf of Tonkin", gulfOfTonkin},
    {"South China Sea", southChinaSea},
    {"Java Sea", javaSea},
    {"Makassar Strait", makassarStrait},
    {"Celebes Sea", celebesSea},
    {"Sulu Sea", suluSea},
    {"Flores Sea", floresSea},
    {"Bali Sea", baliSea},
    {"Savu Sea", savuSea},
    {"Banda Sea", bandaSea},
    {"Molucca Sea", moluccaSea},
    {"Seram Sea", seramSea},
    {"Timor Sea", timorSea},
    {"Arafura Sea", arafuraSea},
    {"Gulf of Carpentaria", gulfOfCarpentaria},
    {"Bismarck Sea", bismarckSea},
    {"Solomon Sea", solomonSea},
    {"Coral Sea", coralSea},
    {"Bass Strait", bassStrait},
    {"Tasman Sea", tasmanSea},
    {"Great Australian Bight", greatAustralianBight},
    {"Bohai Sea", bohaiSea},
    {"Yellow Sea", yellowSea},
    {"East China Sea", eastChinaSea},
    {"Sea of Japan", seaOfJapan},
    {"Sea of Okhotsk", seaOfOkhotsk},
    {"Bering Sea", beringSea},
    {"Gulf of Alaska", gulfOfAlaska},
    {"Philippine Sea", philippineSea},
    {"Gulf of California", gulfOfCalifornia},
    {"Gulf of Mexico", gulfOfMexico},
    {"Caribbean Sea", caribbeanSea},
    {"Gulf of Saint Lawrence", gulfOfSaintLawrence},
    {"Hudson Bay", hudsonBay},
    {"Hudson Strait", hudsonStrait},
    {"Foxe Basin", foxeBasin},
    {"Baffin Bay", baffinBay},
    {"Davis Strait", davisStrait},
    {"Labrador Sea", labradorSea},
    {"Gulf of Guinea", gulfOfGuinea},
    {"Bay of Biscay", bayOfBiscay},
    {"Celtic Sea", celticSea},
    {"English Channel", englishChannel},
    {"Irish Sea", irishSea},
    {"Kattegat", kattegat},
    {"Skagerrak", skagerrak},
    {"North Sea", northSea},
    {"Gulf of Finland", gulfOfFinland},
    {"Gulf of Bothnia", gulfOfBothnia},
    {"Baltic Sea", balticSea},
    {"Norwegian Sea", norwegianSea},
    {"Greenland Sea", greenlandSea},
    {"White Sea", whiteSea},
    {"Barents Sea", barentsSea},
    {"Kara Sea", karaSea},
    {"Laptev Sea", laptevSea},
    {"East Siberian Sea", eastSiberianSea},
    {"Chukchi Sea", chukchiSea},
    {"Beaufort Sea", beaufortSea},
    {"Mozambique Channel", mozambiqueChannel},
    {"Scotia Sea", scotiaSea},
    {"Weddell Sea", weddellSea},
    {"Ross Sea", rossSea},
    {"Bellingshausen Sea", bellingshausenSea},
    {"Amundsen Sea", amundsenSea},
};

} // namespace

std::span<const GlobeOutline> seaOutlines() {
    return seas;
}

} // namespace zeph
