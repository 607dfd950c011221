using System;
using System.Runtime.InteropServices;
using Microsoft.Win32.SafeHandles;

namespace Velmar
{
    /// <summary>Owns a block that an export returned, and releases it once.</summary>
    public sealed class VelmarBlock : SafeHandleZeroOrMinusOneIsInvalid
    {
        /// <summary>Takes over a returned block.</summary>
        public VelmarBlock(IntPtr block) : base(true) { SetHandle(block); }

        /// <summary>Releases the block. Releasing needs no lock: it does not touch the state of the
        /// library.</summary>
        protected override bool ReleaseHandle()
        {
            VelmarNative.freecPointer(handle);
            return true;
        }

        internal BlockCursor Cursor() { return new BlockCursor(handle); }
    }

    /// <summary>Reads floats one after another. Its memory has to stay alive.</summary>
    internal sealed unsafe class BlockCursor
    {
        private const float FirstInexactCount = 1 << 24;
        private float* next;

        internal BlockCursor(IntPtr memory) { next = (float*)memory; }

        internal float Peek() { return *next; }
        internal float Next() { return *next++; }
        internal int NextInt() { return (int)*next++; }
        internal void Skip(int count) { next += count; }

        /// <summary>A count. Floats hold counts exactly up to 2^24 only; a rounded one must not steer
        /// reading.</summary>
        internal int NextCount()
        {
            float count = *next++;
            if (!(count < FirstInexactCount)) throw new OverflowException("a count of the result is not exact");
            return Math.Max((int)count, 0);
        }

        internal float[] Floats(int count)
        {
            var floats = new float[count];
            if (count > 0) Marshal.Copy((IntPtr)next, floats, 0, count);
            next += count;
            return floats;
        }

        internal Position NextPosition()
        {
            next += 2;
            return new Position(next[-2], next[-1]);
        }

        internal Position[] Positions(int count)
        {
            var positions = new Position[count];
            for (int i = 0; i < count; ++i) positions[i] = NextPosition();
            return positions;
        }

        /// <summary>Longitude and latitude of the start, then of the end, then the steps.</summary>
        internal Lattice NextLattice()
        {
            Position start = NextPosition();
            Skip(2);
            return new Lattice(start.Longitude, start.Latitude, Next(), Next());
        }

        /// <summary>Start and end longitude, start and end latitude, then the steps.</summary>
        internal Lattice NextLatticeByAxis()
        {
            float startLongitude = Next();
            Skip(1);
            float startLatitude = Next();
            Skip(1);
            return new Lattice(startLongitude, startLatitude, Next(), Next());
        }
    }
}
