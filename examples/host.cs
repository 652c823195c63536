using System;
using System.Globalization;
using KezLib;

static class Host
{
    static void Main()
    {
        int n;
        float x1 = 0, y1 = 0, x2 = 0, y2 = 0;
        // The line y = 0.5 and the unit circle x^2 + y^2 - 1 = 0.
        Routines.kezlci(0, 1, -0.5f, 0, 0, -1, out n, ref x1, ref y1, ref x2, ref y2);
        if (n == 2)
            Console.WriteLine(string.Format(CultureInfo.InvariantCulture,
                "({0:g6}, {1:g6}) and ({2:g6}, {3:g6})", x1, y1, x2, y2));
    }
}
