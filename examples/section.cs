// Two angles 80 x 8 back to back, 10 apart: area, centroid and second moments.
using System;
using System.Globalization;
using KezLib;

static class Section
{
    static void Main()
    {
        int contours;
        int[] vertices = new int[2], kind = new int[2];
        float[] x = new float[12], y = new float[12], sign = new float[2];
        float[] v1 = new float[2], v2 = new float[2], v3 = new float[2], v4 = new float[2];
        float[] v5 = new float[2], v6 = new float[2], v7 = new float[2];
        Routines.kezsec_l2(80, 80, 10, 8, 8, 0, out contours, vertices, x, y, kind, sign, v1, v2,
                           v3, v4, v5, v6, v7);

        float area = 0, sx = 0, sy = 0, ix = 0, iy = 0, ixy = 0;
        for (int i = 1; i <= contours; ++i)
        {
            // A contour of its own has room for the first vertex, repeated behind the last.
            int n = vertices[i - 1];
            float[] cx = new float[n + 1], cy = new float[n + 1];
            Routines.kezadr(0, vertices, i, x, cx);
            Routines.kezadr(0, vertices, i, y, cy);

            float a, mx, my, jx, jy, jxy;
            Routines.kezapl(cx, cy, n, out a);
            Routines.kezspl(cx, cy, n, out mx, out my);
            Routines.kezipl(cx, cy, n, out jx, out jy, out jxy);
            float s = sign[i - 1];
            area += s * a;
            sx += s * mx;
            sy += s * my;
            ix += s * jx;
            iy += s * jy;
            ixy += s * jxy;
        }

        float u, v, theta, xc = sy / area, yc = sx / area;
        Routines.kezinp(ix - area * yc * yc, iy - area * xc * xc, ixy - area * xc * yc, out u,
                        out v, out theta);
        Console.WriteLine(string.Format(CultureInfo.InvariantCulture,
            "area {0:f0}, centroid ({1:f2}, {2:f2}), principal moments {3:g4} and {4:g4}", area,
            xc, yc, u, v));
    }
}
